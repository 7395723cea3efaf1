#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include <QString>

#include "gui/gadgets/gadget_registry.h"

namespace rotavel {

// A native view that is a control: it may have a value, as text and as a whole number.
class QzControl {
  public:
    virtual ~QzControl() = default;
    virtual void SetStringValue(const QString&) {}
    virtual QString StringValue() const { return {}; }
    virtual void SetIntValue(int value) { SetStringValue(QString::number(value)); }
    // The number that the text begins with, 0 without one; saturates.
    virtual int IntValue() const {
        const long number = std::strtol(StringValue().toUtf8().constData(), nullptr, 10);
        return static_cast<int>(std::clamp<long>(number, std::numeric_limits<int>::min(),
                                                 std::numeric_limits<int>::max()));
    }
};

// What every native view of a gadget carries beside the toolkit's widget: the gadget's number, and
// whether its record is gone. The view takes its record along when it goes, whoever deletes it.
class QzTaggedView {
  public:
    virtual ~QzTaggedView() {
        if (!Qz_alreadyDestroyed) {
            FreeGadgetRecord(Qz_tag);
        }
    }
    void SetTag(std::int64_t tag) { Qz_tag = tag; }
    void SetAlreadyDestroyed(bool destroyed) { Qz_alreadyDestroyed = destroyed; }
    std::int64_t Tag() const { return Qz_tag; }

    // Post GadgetActivity for the gadget, and run its event handler. Nothing happens once the
    // gadget is gone: the view lives on for a while, and its number may be another's by then.
    void SendEvent(std::int64_t type) const {
        if (const QzGadgetFunctions* const functions = Functions()) {
            functions->SendEvent(type);
        }
    }
    void RunEventHandler() const {
        if (QzGadgetFunctions* const functions = Functions()) {
            functions->EventHandler();
        }
    }

  private:
    QzGadgetFunctions* Functions() const {
        const GadgetRecord* const record =
            Qz_alreadyDestroyed ? nullptr : GadgetRegistry().Find(Qz_tag);
        return record == nullptr ? nullptr : record->Functions.get();
    }

    std::int64_t Qz_tag = -1;
    bool Qz_alreadyDestroyed = false;
};

}  // namespace rotavel
