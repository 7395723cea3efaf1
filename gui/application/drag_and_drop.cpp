#include "gui/drag_and_drop.h"

#include <QStringList>
#include <QUrl>

#include "gui/event_queue.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/text.h"
#include "gui/windows/drop_target.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

QString TextOf(const QMimeData& data) {
    if (!data.hasUrls()) {
        return data.text();
    }
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        paths += url.isLocalFile() ? url.toLocalFile() : url.toString();
    }
    return paths.join('\n');
}

}  // namespace

std::int64_t AcceptingWindowOf(const QWidget* widget) {
    const QzWindow* const window = QzWindow::Of(widget);
    return window == nullptr || window->IsDisabled() ? -1 : WindowNumberOf(widget);
}

void PostDrop(std::uint32_t kind, std::int64_t object, std::int64_t window, QDropEvent& event) {
    auto* const text = new std::u16string(FromQString(TextOf(*event.mimeData())));
    const auto release = [](void* data) { delete static_cast<std::u16string*>(data); };
    QueueEvent(kind, object, window, 0, text, release, PostUnmerged);
}

void EnableGadgetDrop(std::int64_t gadget, int state) {
    if (const GadgetRecord* const record = GadgetRegistry().Find(gadget)) {
        dynamic_cast<QzTaggedView&>(*record->View).TakeGadgetDrops(state != 0);
    }
}

void EnableWindowDrop(std::int64_t window, int state) {
    if (const WindowRecord* const record = WindowRegistry().Find(window)) {
        record->Window->ContentView()->TakeDrops(state != 0, DropOnWindow, window);
    }
}

std::u16string EventDropText() {
    const bool isDrop = CurrentEventKind() == DropOnGadget || CurrentEventKind() == DropOnWindow;
    const auto* const text = static_cast<const std::u16string*>(CurrentEventData());
    return isDrop && text != nullptr ? *text : std::u16string();
}

}  // namespace rotavel
