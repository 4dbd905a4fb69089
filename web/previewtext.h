#pragma once

#include <QString>

// The text as the preview shows it: of each line that takes long to lay out, because its characters
// depend on those beside them (marks, Thai, Arabic …), only a page full, with a sign at its end.
QString withCutLines(const QString &strText);
