#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "gui/handles.h"
#include "gui/numbers.h"

class QWidget;

namespace rotavel {

enum GadgetKind : std::int32_t;
struct GadgetRecord;
struct NewGadget;

// The operations of one gadget. Each kind derives a class that overrides what it does differently;
// what it does not serve falls back to here, where it does nothing and returns 0.
class QzGadgetFunctions {
  public:
    virtual ~QzGadgetFunctions() = default;

    // Enters a gadget into the registry, with these as its functions; its view gets tag, default
    // font and place and is shown. The number must be free. Returns it, or the automatic one.
    static GadgetNumber Setup(std::unique_ptr<QzGadgetFunctions> functions, const NewGadget& gadget,
                              QWidget* view, QWidget* container);
    // Takes over the gadget of an existing record under a new kind; its functions are released.
    static void Reuse(std::unique_ptr<QzGadgetFunctions> functions, GadgetRecord& record,
                      GadgetKind kind);

    // Posts GadgetActivity for this gadget.
    void SendEvent(std::int64_t type) const;
    // The control's action: an event of type 0 where a kind has no other.
    virtual void EventHandler() { SendEvent(0); }

    virtual void FreeGadget() {}
    virtual void ActivateGadget();
    virtual void GadgetToolTip(std::u16string_view text);
    void GadgetName(std::u16string_view text) const;
    virtual void HideGadget(bool state);
    virtual void DisableGadget(bool state);
    virtual std::int64_t GadgetX(int mode) const;
    virtual std::int64_t GadgetY(int mode) const;
    virtual std::int64_t GadgetWidth() const;
    virtual std::int64_t GadgetHeight() const;
    virtual void ResizeGadget(std::int64_t x, std::int64_t y, std::int64_t width,
                              std::int64_t height);
    virtual void SetGadgetFont(std::int64_t font);
    virtual std::int64_t GetGadgetFont() const;

    virtual std::int64_t AddGadgetItem(std::int64_t, std::u16string_view, NativeImage*,
                                       std::uint32_t) {
        return 0;
    }
    virtual void RemoveGadgetItem(std::int64_t) {}
    virtual void ClearGadgetItems() {}
    virtual std::int64_t CountGadgetItems() const { return 0; }
    virtual std::int64_t AddGadgetColumn(std::int64_t, std::u16string_view, std::int64_t) {
        return 0;
    }
    virtual void RemoveGadgetColumn(std::int64_t) {}

    virtual void SetGadgetState(std::int64_t state);
    virtual std::int64_t GetGadgetState() const;
    virtual void SetGadgetItemState(std::int64_t, std::int64_t) {}
    virtual std::int64_t GetGadgetItemState(std::int64_t) const { return 0; }
    virtual void SetGadgetItemImage(std::int64_t, NativeImage*) {}

    virtual void SetGadgetText(std::u16string_view text);
    virtual std::u16string GetGadgetText() const;
    virtual void SetGadgetItemText(std::int64_t, std::u16string_view, std::int64_t) {}
    virtual std::u16string GetGadgetItemText(std::int64_t, std::int64_t) { return {}; }

    virtual void SetGadgetAttribute(std::int64_t, std::int64_t) {}
    virtual std::int64_t GetGadgetAttribute(std::int64_t) const { return 0; }
    virtual void SetGadgetItemAttribute(std::int64_t, std::int64_t, std::int64_t, std::int64_t) {}
    virtual std::int64_t GetGadgetItemAttribute(std::int64_t, std::int64_t, std::int64_t) const {
        return 0;
    }
    virtual void SetGadgetColor(std::int64_t, std::int64_t) {}
    virtual std::int64_t GetGadgetColor(std::int64_t) const { return 0; }
    virtual void SetGadgetItemColor(std::int64_t, std::int64_t, std::int64_t, std::int64_t) {}
    virtual std::int64_t GetGadgetItemColor(std::int64_t, std::int64_t, std::int64_t) const {
        return 0;
    }
    virtual void SetGadgetItemData(std::int64_t, std::int64_t) {}
    virtual std::int64_t GetGadgetItemData(std::int64_t) const { return 0; }
    virtual void OpenGadgetList(std::int64_t) {}

  protected:
    void DisableView(bool state);

    std::int64_t GadgetID = -1;
    GadgetRecord* Gadget = nullptr;
    bool isNSControl = false;

  private:
    std::int64_t fontNumber = -1;
};

// Takes the keyboard from a view, or from one that it holds, and gives it to none. Bindings run and
// may free the gadget; the view itself stays until the program's outermost wait.
void TakeKeyboardFrom(const QWidget& view);

}  // namespace rotavel
