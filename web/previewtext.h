#pragma once

#include <QString>

// The text as the preview shows it. A line takes long to lay out if its characters depend on their
// neighbours (marks, Thai, Arabic …); only a page full of it is shown, with a sign at its end.
QString withCutLines(const QString &strText);
