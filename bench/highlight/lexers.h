#pragma once

#include <Qsci/qscilexer.h>
#include <memory>

// QScintilla's lexer for a file of that name; null when it has none.
std::unique_ptr<QsciLexer> lexerFor(const QString &strFileName);
