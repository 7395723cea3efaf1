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

// What every native view of a gadget carries: the gadget's number, and whether its record is gone.
class QzTaggedView {
  public:
    virtual ~QzTaggedView() = default;
    void SetTag(std::int64_t tag) { Qz_tag = tag; }
    void SetAlreadyDestroyed(bool destroyed) { Qz_alreadyDestroyed = destroyed; }
    std::int64_t Tag() const { return Qz_tag; }
    virtual void TakeGadgetDrops(bool takes) = 0;

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

  protected:
    std::int64_t Qz_tag = -1;
    bool Qz_alreadyDestroyed = false;

  private:
    QzGadgetFunctions* Functions() const {
        const GadgetRecord* const record =
            Qz_alreadyDestroyed ? nullptr : GadgetRegistry().Find(Qz_tag);
        return record == nullptr ? nullptr : record->Functions.get();
    }
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

}  // namespace rotavel
