#pragma once

#include <QProxyStyle>

namespace rotavel {

// The one look of the program, so that what its small rows show does not depend on the desktop's
// style: the toolkit's own style (macOS: the system's), in the desktop's palette, with margins that
// suit rows of 20 pixels. A text that does not fit its place is narrowed rather than cut, and what
// has the keyboard always shows it.
class QzStyle final : public QProxyStyle {
  public:
    QzStyle();

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawItemText(QPainter* painter, const QRect& place, int flags, const QPalette& palette,
                      bool enabled, const QString& text,
                      QPalette::ColorRole textRole) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
};

}  // namespace rotavel
