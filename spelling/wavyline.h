#pragma once

class QPainter;
class QRectF;

// The mark of a misspelt word: a wavy line at the bottom of the word's rectangle.
void paintWavyLine(QPainter *pPainter, const QRectF &word);
