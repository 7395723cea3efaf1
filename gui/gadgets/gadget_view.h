#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include <QString>
#include <QWidget>

#include "gui/events/event_posting.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/windows/drop_target.h"

namespace rotavel {

// A native view that is a control: it has a value as text and as a whole number.
class QzControl {
  public:
    virtual ~QzControl() = default;
    virtual void SetStringValue(const QString& value) = 0;
    virtual QString StringValue() const = 0;
    virtual void SetIntValue(int value) { SetStringValue(QString::number(value)); }
    // The number that the text begins with, 0 without one; saturates.
    virtual int IntValue() const {
        const long number = std::strtol(StringValue().toUtf8().constData(), nullptr, 10);
        return static_cast<int>(std::clamp<long>(number, std::numeric_limits<int>::min(),
                                                 std::numeric_limits<int>::max()));
    }
};

// What every native view of a gadget carries: the gadget's number, and whether its record is gone.
class QzTaggedView {
  public:
    virtual ~QzTaggedView() = default;
    void SetTag(std::int64_t tag) { Qz_tag = tag; }
    void SetAlreadyDestroyed(bool destroyed) { Qz_alreadyDestroyed = destroyed; }
    bool IsAlreadyDestroyed() const { return Qz_alreadyDestroyed; }
    std::int64_t Tag() const { return Qz_tag; }
    virtual void TakeGadgetDrops(bool takes) = 0;

  protected:
    std::int64_t Qz_tag = -1;
    bool Qz_alreadyDestroyed = false;
};

// A toolkit widget as a gadget's view: takes its record along when it goes, whoever deletes it.
template <typename Base>
class QzGadgetView : public QzDropTarget<Base>, public QzTaggedView {
  public:
    using QzDropTarget<Base>::QzDropTarget;
    ~QzGadgetView() override {
        if (!Qz_alreadyDestroyed) {
            FreeGadgetRecord(Qz_tag);
        }
    }

    void TakeGadgetDrops(bool takes) override { this->TakeDrops(takes, DropOnGadget, Qz_tag); }
};

// The functions of the gadget that a view belongs to. Null when that is gone: the view lives on for
// a while, and its number may be another's by then.
inline QzGadgetFunctions* FunctionsOf(const QzTaggedView& view) {
    const GadgetRecord* const record =
        view.IsAlreadyDestroyed() ? nullptr : GadgetRegistry().Find(view.Tag());
    return record == nullptr ? nullptr : record->Functions.get();
}

// Posts GadgetActivity for the gadget of a view.
inline void SendEventOf(const QzTaggedView& view, std::int64_t type) {
    if (const QzGadgetFunctions* const functions = FunctionsOf(view)) {
        functions->SendEvent(type);
    }
}

// The control's action: runs the gadget's event handler.
inline void RunEventHandler(const QzTaggedView& view) {
    if (QzGadgetFunctions* const functions = FunctionsOf(view)) {
        functions->EventHandler();
    }
}

}  // namespace rotavel
