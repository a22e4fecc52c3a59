#include "FocusStyle.h"
#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace {
class FocusStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_FrameFocusRect) {
            frame(option->rect, option->palette, painter, 2);
            return;
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element == PE_PanelButtonCommand && (option->state & State_HasFocus))
            frame(option->rect.adjusted(1, 1, -1, -1), option->palette, painter, 3);
    }

  private:
    static void frame(const QRect& rect, const QPalette& palette, QPainter* painter, int radius) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(palette.color(QPalette::Highlight), 2));
        painter->drawRoundedRect(QRectF(rect).adjusted(1, 1, -1, -1), radius, radius);
        painter->restore();
    }
};
} // namespace

void InstallFocusStyle() {
    if (dynamic_cast<FocusStyle*>(QApplication::style())) return;
    QApplication::setStyle(new FocusStyle(QApplication::style()->name()));
}
