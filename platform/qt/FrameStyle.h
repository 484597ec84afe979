// The desktop's style, with frames that can be seen at every scale and buttons that keep still.
#pragma once

#include <cmath>

#include <QAbstractAnimation>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
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

    // Under Windows the toolkit lets default buttons glow on and off for as long as they show.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        QProxyStyle::drawControl(element, option, painter, widget);
        if (element != CE_PushButtonBevel || option->styleObject == nullptr) {
            return;
        }
        for (auto* const animation : option->styleObject->findChildren<QAbstractAnimation*>(
                 QString(), Qt::FindDirectChildrenOnly)) {
            if (animation->inherits("QWindowsVistaPulse")) {
                animation->stop();
            }
        }
    }

  private:
    static constexpr double kHalfDot = 0.5;

    static bool IsBetweenDots(const QWidget* widget) {
        return widget != nullptr &&
               widget->devicePixelRatioF() != std::floor(widget->devicePixelRatioF());
    }
};

}  // namespace qfr
