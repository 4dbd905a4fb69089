#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QWidget>

#include <cmath>

// The contrast of what is really painted, by the definition of the Web Content Accessibility
// Guidelines 2.1: relative luminance and contrast ratio, from 1 to 21.
namespace Contrast {

inline double luminance(const QColor &clr)
{
    const auto linear = [](double d) {
        return d <= 0.03928 ? d / 12.92 : std::pow((d + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(clr.redF()) + 0.7152 * linear(clr.greenF())
        + 0.0722 * linear(clr.blueF());
}

inline double ratio(const QColor &clr1, const QColor &clr2)
{
    const double d1 = luminance(clr1) + 0.05;
    const double d2 = luminance(clr2) + 0.05;
    return d1 > d2 ? d1 / d2 : d2 / d1;
}

// The contrast between the most frequent colour of a widget's picture, which is its background, and
// the colour that differs most from it, which is that of its letters. Frames must be fainter than
// letters.
inline double ofText(QWidget *pWidget)
{
    // Cut out of the window, with what lies under the widget.
    QWidget *pWindow = pWidget->window();
    const QRect rect(pWidget->mapTo(pWindow, QPoint()), pWidget->size());
    const QImage image = pWindow->grab(rect).toImage().convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    QRgb background = 0;
    int nMost = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > nMost) {
            nMost = it.value();
            background = it.key();
        }
    }
    double dBest = 1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        dBest = std::max(dBest, ratio(QColor(it.key()), QColor(background)));
    return dBest;
}

} // namespace Contrast
