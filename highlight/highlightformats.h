#pragma once

#include "highlight/highlightline.h"

#include <QTextLayout>
#include <QVector>
#include <vector>

// The ranges of a line as a block's layout takes them. Any thread with a QGuiApplication.
QVector<QTextLayout::FormatRange> formatsOf(const std::vector<SHighlightRange> &lst);

// Is the range a mark of the selected word? Any other is a syntax range.
bool isMark(const QTextLayout::FormatRange &range);
