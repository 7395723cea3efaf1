#pragma once

#include <cstdint>
#include <optional>

#include <QWidget>

#include "gui/toolkit/colour.h"

namespace rotavel {

// The colours that the program has given a view; where it has given none the view's own hold, also
// after the desktop's have changed.
class GadgetColours {
  public:
    GadgetColours(QPalette::ColorRole front, QPalette::ColorRole back)
        : frontRole(front), backRole(back) {}

    void SetFront(QWidget& view, const std::optional<QColor>& colour) {
        frontColour = colour;
        Apply(view);
    }
    void SetBack(QWidget& view, const std::optional<QColor>& colour) {
        backColour = colour;
        Apply(view);
    }
    QColor Front(const QWidget& view) const { return view.palette().color(frontRole); }
    QColor Back(const QWidget& view) const { return view.palette().color(backRole); }

  private:
    void Apply(QWidget& view) const {
        QPalette palette;
        if (frontColour) {
            palette.setColor(frontRole, *frontColour);
        }
        if (backColour) {
            palette.setColor(backRole, *backColour);
        }
        view.setPalette(palette);
    }

    QPalette::ColorRole frontRole;
    QPalette::ColorRole backRole;
    std::optional<QColor> frontColour;
    std::optional<QColor> backColour;
};

// A colour given by the application, or nothing for "none".
inline std::optional<QColor> GivenColour(std::int64_t rgba) {
    return rgba < 0 ? std::nullopt : std::optional(ToQColor(static_cast<std::uint32_t>(rgba)));
}

}  // namespace rotavel
