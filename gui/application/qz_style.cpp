#include "gui/application/qz_style.h"

#include <QPainter>
#include <QStyleOption>

#include "gui/toolkit/narrow_font.h"

namespace rotavel {

namespace {

QString BaseStyle() {
#if defined(Q_OS_MACOS)
    return QStringLiteral("macos");
#else
    return QStringLiteral("fusion");
#endif
}

// Of a plain combo box. The base style keeps more for the arrow than a box of 50 pixels has to
// give.
constexpr int ComboBoxMargin = 3;
constexpr int ComboBoxArrowWidth = 12;

QRect ComboBoxPart(const QStyleOptionComplex& box, QStyle::SubControl part) {
    const QRect inside =
        box.rect.adjusted(ComboBoxMargin, ComboBoxMargin, -ComboBoxMargin, -ComboBoxMargin);
    const int textWidth = inside.width() - ComboBoxArrowWidth;
    const QRect place =
        part == QStyle::SC_ComboBoxArrow
            ? inside.adjusted(textWidth, 0, 0, 0)
            : inside.adjusted(0, 1 - ComboBoxMargin, -ComboBoxArrowWidth, ComboBoxMargin - 1);
    return QStyle::visualRect(box.direction, box.rect, place);
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

// The frame of a field on dark ground, where the base style's own, which is darker than the ground,
// is not to be seen.
void DrawLightFrame(QPainter& painter, const QStyleOption& field) {
    constexpr float frameAlpha = 0.35F;
    constexpr double halfPen = 0.5;
    constexpr double corner = 2;
    QColor colour = field.palette.color(QPalette::WindowText);
    colour.setAlphaF(frameAlpha);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colour);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(field.rect).adjusted(halfPen, halfPen, -halfPen, -halfPen),
                            corner, corner);
    painter.restore();
}

}  // namespace

QzStyle::QzStyle() : QProxyStyle(BaseStyle()) {}

void QzStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
#if !defined(Q_OS_MACOS)
    if (element == CE_FocusFrame) {
        painter->fillRect(option->rect, option->palette.highlight());
        return;
    }
#endif
    QProxyStyle::drawControl(element, option, painter, widget);
}

void QzStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == PE_FrameLineEdit && IsDark(option->palette) &&
        !option->state.testFlag(State_HasFocus)) {
        DrawLightFrame(*painter, *option);
        return;
    }
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element != PE_PanelButtonCommand || button == nullptr ||
        !button->state.testFlag(State_HasFocus)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    // The base style waits for a first Tab in the window, also where a button got the keyboard
    // before.
    QStyleOptionButton marked = *button;
    marked.state |= State_KeyboardFocusChange;
    QProxyStyle::drawPrimitive(element, &marked, painter, widget);
}

void QzStyle::drawItemText(QPainter* painter, const QRect& place, int flags,
                           const QPalette& palette, bool enabled, const QString& text,
                           QPalette::ColorRole textRole) const {
    const bool isOneLine = (flags & (Qt::TextWordWrap | Qt::TextWrapAnywhere)) == 0;
    const QFont font = painter->font();
    if (isOneLine && !place.isEmpty()) {
        painter->setFont(NarrowFont(font, place.width(), [&](const QFont& tried) {
            return QFontMetricsF(tried, painter->device()).size(flags, text).width();
        }));
    }
    QProxyStyle::drawItemText(painter, place, flags, palette, enabled, text, textRole);
    painter->setFont(font);
}

int QzStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                       QStyleHintReturn* result) const {
    // A menu longer than the screen scrolls, so that its last item can be reached however many
    // there are; columns would run off the screen.
    if (hint == SH_Menu_Scrollable) {
        return 1;
    }
    return QProxyStyle::styleHint(hint, option, widget, result);
}

QRect QzStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                              SubControl subControl, const QWidget* widget) const {
#if !defined(Q_OS_MACOS)
    const auto* const box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const bool isPart = subControl == SC_ComboBoxEditField || subControl == SC_ComboBoxArrow;
    if (control == CC_ComboBox && isPart && box != nullptr && !box->editable) {
        return ComboBoxPart(*box, subControl);
    }
#endif
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

}  // namespace rotavel
