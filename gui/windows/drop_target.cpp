#include "gui/windows/drop_target.h"

#include <string>

#include <QStringList>
#include <QUrl>

#include "gui/events/event_posting.h"
#include "gui/toolkit/text.h"
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

bool CarriesText(const QDropEvent& event) {
    return event.mimeData()->hasText() || event.mimeData()->hasUrls();
}

WindowNumber AcceptingWindowOf(const QWidget* widget) {
    const QzWindow* const window = QzWindow::Of(widget);
    return window == nullptr || window->IsDisabled() ? -1 : WindowNumberOf(widget);
}

void PostDrop(std::uint32_t kind, std::int64_t object, WindowNumber window, QDropEvent& event) {
    auto* const text = new std::u16string(FromQString(TextOf(*event.mimeData())));
    const auto release = [](void* data) { delete static_cast<std::u16string*>(data); };
    QueueEvent(kind, object, window, 0, text, release, PostUnmerged);
}

}  // namespace rotavel
