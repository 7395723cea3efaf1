#pragma once

#include <cstdint>

#include <QDragEnterEvent>
#include <QDragMoveEvent>
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
    // The number of the window that drops are posted for; -1 while it takes none.
    virtual WindowNumber DropWindow() const = 0;

    void dragEnterEvent(QDragEnterEvent* event) override {
        if (takesDrops) {
            Judge(*event);
        } else {
            Base::dragEnterEvent(event);
        }
    }
    void dragMoveEvent(QDragMoveEvent* event) override {
        if (takesDrops) {
            Judge(*event);
        } else {
            Base::dragMoveEvent(event);
        }
    }
    void dropEvent(QDropEvent* event) override {
        if (!takesDrops) {
            Base::dropEvent(event);
        } else if (Judge(*event)) {
            PostDrop(dropKind, dropObject, DropWindow(), *event);
        }
    }

  private:
    bool Judge(QDropEvent& event) const {
        const bool welcome = CarriesText(event) && DropWindow() != -1;
        event.setAccepted(welcome);
        if (welcome) {
            event.setDropAction(Qt::CopyAction);
        }
        return welcome;
    }

    bool takesDrops = false;
    bool acceptedBefore = false;
    std::uint32_t dropKind = 0;
    std::int64_t dropObject = -1;
};

}  // namespace rotavel
