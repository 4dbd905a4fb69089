#pragma once

#include <QChar>
#include <QString>
#include <optional>

// Corrects styles of the peer: some of its definitions use a style only for its colour, or call
// text code. Tells whether a character of that style is in a comment or string by the language's
// grammar; nothing if the style is right. The table in the source file gives the reason of each.
std::optional<bool> classByGrammar(const QString &strLanguage, const QString &strStyle, QChar ch);
