#pragma once

#include <QChar>
#include <QString>
#include <optional>

// Where the peer's definition of a language uses a style for its colour alone, or calls text code:
// whether a character of that style is comment or string by the language's grammar. Nothing where
// the style says it rightly. The table in the source file gives the reason of each.
std::optional<bool> classByGrammar(const QString &strLanguage, const QString &strStyle, QChar ch);
