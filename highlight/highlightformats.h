#pragma once

#include "highlight/highlightline.h"

#include <QTextLayout>
#include <QVector>
#include <vector>

// Turns the ranges of a line into formats for a block's layout. Any thread with a QGuiApplication.
QVector<QTextLayout::FormatRange> formatsOf(const std::vector<SHighlightRange> &lst);

// True for a mark of the selected word; any other range is a syntax range.
bool isMark(const QTextLayout::FormatRange &range);
