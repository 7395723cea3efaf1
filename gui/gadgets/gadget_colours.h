#pragma once

#include <cstdint>
#include <map>

#include <QWidget>

#include "gui/gadget.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/toolkit/colour.h"

namespace rotavel {

// The operations of a kind whose text and background have colours. Where the program has given none
// the view's own hold, also after the desktop's have changed.
class QzColouredGadgetFunctions : public QzGadgetFunctions {
  public:
    void SetGadgetColor(std::int64_t type, std::int64_t colour) override {
        const QPalette::ColorRole role = RoleOf(type);
        given.erase(role);
        if (role != QPalette::NoRole && colour >= 0) {
            given[role] = ToQColor(static_cast<std::uint32_t>(colour));
        }
        QPalette palette;
        for (const auto& [givenRole, givenColour] : given) {
            palette.setColor(givenRole, givenColour);
        }
        Gadget->View->setPalette(palette);
    }
    std::int64_t GetGadgetColor(std::int64_t type) const override {
        const QPalette::ColorRole role = RoleOf(type);
        return role == QPalette::NoRole ? 0 : FromQColor(Gadget->View->palette().color(role));
    }

  private:
    QPalette::ColorRole RoleOf(std::int64_t type) const {
        return type == GadgetFrontColor  ? Gadget->View->foregroundRole()
               : type == GadgetBackColor ? Gadget->View->backgroundRole()
                                         : QPalette::NoRole;
    }

    std::map<QPalette::ColorRole, QColor> given;
};

}  // namespace rotavel
