#include "gui/gadgets/gadget_registry.h"

#include <utility>
#include <vector>

#include "gui/gadget.h"
#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

NumberedObjects<GadgetRecord> registry;

void FreeRecord(GadgetNumber number, GadgetRecord& record) {
    QzGadgetList::RemoveView(ToHandle<NativeView>(record.Container));
    record.Functions->FreeGadget();
    registry.Remove(number);
}

// The view lives on for a while.
void FreeRecordBeforeView(GadgetNumber number, GadgetRecord& record) {
    dynamic_cast<QzTaggedView&>(*record.View).SetAlreadyDestroyed(true);
    FreeRecord(number, record);
}

// Frees the gadgets that match and are there now: a callback may create one for each that goes, and
// so on without end. The predicate is asked about each more than once.
template <typename Predicate>
void FreeWhere(Predicate matches) {
    std::vector<std::pair<GadgetNumber, const QWidget*>> present;
    registry.ForEach([&](GadgetNumber number, const GadgetRecord& record) {
        if (matches(record)) {
            present.emplace_back(number, record.Container);
        }
    });
    for (const auto& [number, container] : present) {
        const GadgetRecord* const record = registry.Find(number);
        if (record != nullptr && record->Container == container && matches(*record)) {
            FreeGadget(number);
        }
    }
}

void FreeOne(GadgetNumber number, const GadgetRecord& record) {
    // A binding to a LostFocus that this posts may free the gadget, create another under its number
    // or close the window.
    QWidget* const container = record.Container;
    TakeKeyboardFrom(*container);
    FreeWhere([container](const GadgetRecord& other) {
        return container != other.Container && container->isAncestorOf(other.View);
    });
    GadgetRecord* const present = registry.Find(number);
    if (present == nullptr || present->Container != container) {
        return;
    }
    FreeRecordBeforeView(number, *present);
    // A binding may have given it the keyboard back, and hiding would pass that on.
    TakeKeyboardFrom(*container);
    container->hide();
    Retire(container);
}

// What windows mean to gadgets.
class GadgetObserver final : public WindowObserver {
  public:
    void WindowTakesGadgets(QzWindow& window) override {
        QzGadgetList::SetWindow(ToHandle<NativeWindow>(&window));
    }
    void WindowCloses(QzWindow& window, WindowNumber number) override {
        // A callback may open another window under the number: that one's gadgets stay.
        FreeWhere([&window, number](const GadgetRecord& record) {
            const WindowRecord* const owner = WindowRegistry().Find(number);
            return record.Window == number && owner != nullptr && owner->Window == &window;
        });
    }
    void WindowClosed(QzWindow& window) override {
        QzGadgetList::RemoveWindow(ToHandle<NativeWindow>(&window));
        // A callback may have created gadgets in it to the last: they go with it, without a word.
        registry.ForEach([&window](GadgetNumber number, GadgetRecord& record) {
            if (QzWindow::Of(record.Container) == &window) {
                FreeRecordBeforeView(number, record);
            }
        });
    }
};

}  // namespace

NumberedObjects<GadgetRecord>& GadgetRegistry() {
    return registry;
}

WindowObserver& GadgetsAsObserver() {
    static GadgetObserver observer;
    return observer;
}

QWidget* MakeRoomFor(GadgetNumber number) {
    if (number < AnyNumber || QzGadgetList::CurrentView() == nullptr) {
        return nullptr;
    }
    if (number != AnyNumber) {
        FreeGadget(number);
    }
    return GadgetExists(number) ? nullptr : FromHandle(QzGadgetList::CurrentView());
}

void FreeGadgetRecord(GadgetNumber number) {
    if (GadgetRecord* const record = registry.Find(number)) {
        FreeRecord(number, *record);
    }
}

void FreeGadget(GadgetNumber number) {
    if (number == AnyNumber) {
        FreeWhere([](const GadgetRecord&) { return true; });
    } else if (GadgetRecord* const record = registry.Find(number)) {
        FreeOne(number, *record);
    }
}

}  // namespace rotavel
