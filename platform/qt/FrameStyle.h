// The desktop's style, with frames that can be seen at every scale.
#pragma once

#include <cmath>

#include <QPainter>
#include <QProxyStyle>
#include <QWidget>

namespace qfr {

// At 150 % a frame one pixel wide lies half outside its widget and half under what it frames.
class FrameStyle : public QProxyStyle {
  public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        const int width = QProxyStyle::pixelMetric(metric, option, widget);
        return metric == PM_DefaultFrameWidth && IsBetweenDots(widget) ? width + 1 : width;
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        const bool shifted = element == PE_Frame && IsBetweenDots(widget);
        const double shift = shifted ? kHalfDot / widget->devicePixelRatioF() : 0;
        painter->translate(shift, shift);
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        painter->translate(-shift, -shift);
    }

  private:
    static constexpr double kHalfDot = 0.5;

    static bool IsBetweenDots(const QWidget* widget) {
        return widget != nullptr &&
               widget->devicePixelRatioF() != std::floor(widget->devicePixelRatioF());
    }
};

}  // namespace qfr
