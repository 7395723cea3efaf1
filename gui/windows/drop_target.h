#pragma once

#include <cstdint>

#include <QDropEvent>
#include <QMimeData>

#include "gui/numbers.h"

namespace rotavel {

// Whether a drag carries something that a program can be given.
bool CarriesText(const QDropEvent& event);

// The number of the window that a widget lies in; -1 while that window is disabled.
WindowNumber AcceptingWindowOf(const QWidget* widget);

// Posts a drop with what was dropped.
void PostDrop(std::uint32_t kind, std::int64_t object, WindowNumber window, QDropEvent& event);

// A view that reports drops once it is told to take them, and leaves them to its base otherwise.
template <typename Base>
class QzDropTarget : public Base {
  public:
    using Base::Base;

    // Takes drops, posted as `kind` for `object`.
    void TakeDrops(bool takes, std::uint32_t kind, std::int64_t object) {
        if (takes == takesDrops) {
            return;
        }
        takesDrops = takes;
        dropKind = kind;
        dropObject = object;
        if (takes) {
            acceptedBefore = Base::acceptDrops();
        }
        Base::setAcceptDrops(takes || acceptedBefore);
    }

  protected:
    bool event(QEvent* event) override {
        const bool isDrop = event->type() == QEvent::Drop;
        const bool isDrag =
            isDrop || event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
        if (!takesDrops || !isDrag) {
            return Base::event(event);
        }
        auto& drag = static_cast<QDropEvent&>(*event);  // of which the others are kinds
        const WindowNumber window = AcceptingWindowOf(this);
        const bool isWelcome = CarriesText(drag) && window != -1;
        drag.setAccepted(isWelcome);
        if (isWelcome) {
            drag.setDropAction(Qt::CopyAction);
        }
        if (isWelcome && isDrop) {
            PostDrop(dropKind, dropObject, window, drag);
        }
        return true;
    }

  private:
    bool takesDrops = false;
    bool acceptedBefore = false;
    std::uint32_t dropKind = 0;
    std::int64_t dropObject = -1;
};

}  // namespace rotavel
