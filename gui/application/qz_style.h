#pragma once

#include <QProxyStyle>

namespace rotavel {

// The desktop's own style with the one thing changed that this program's windows need.
class QzStyle final : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        // A menu longer than the screen scrolls, so that its last item can be reached however many
        // there are; columns would run off the screen.
        if (hint == SH_Menu_Scrollable) {
            return 1;
        }
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
};

}  // namespace rotavel
