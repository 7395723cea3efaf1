#include "gui/windows/drop_target.h"

#include <string>

#include <QDropEvent>
#include <QMimeData>
#include <QStringList>
#include <QUrl>
#include <QWidget>

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

void PostDrop(std::uint32_t kind, std::int64_t object, WindowNumber window, QDropEvent& event) {
    auto* const text = new std::u16string(FromQString(TextOf(*event.mimeData())));
    const auto release = [](void* data) { delete static_cast<std::u16string*>(data); };
    QueueEvent(kind, object, window, 0, text, release, PostUnmerged);
}

// Comes before a view at what is dragged over it; the view owns it.
class DropTarget final : public QObject {
  public:
    DropTarget(QWidget& target, std::uint32_t kind, std::int64_t object)
        : QObject(&target), acceptedBefore(target.acceptDrops()), Kind(kind), Object(object) {
        setObjectName(Name);
        target.setAcceptDrops(true);
        target.installEventFilter(this);
    }

    static DropTarget* Of(const QWidget& view) {
        return static_cast<DropTarget*>(view.findChild<QObject*>(Name, Qt::FindDirectChildrenOnly));
    }
    bool AcceptedBefore() const { return acceptedBefore; }

  protected:
    bool eventFilter(QObject* view, QEvent* event) override {
        const bool isDrop = event->type() == QEvent::Drop;
        if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
            return false;
        }
        auto& drag = static_cast<QDropEvent&>(*event);  // of which the others are kinds
        const auto* const widget = static_cast<const QWidget*>(view);
        const QzWindow* const window = QzWindow::Of(widget);
        const bool isWelcome = window != nullptr && !window->IsDisabled() &&
                               (drag.mimeData()->hasText() || drag.mimeData()->hasUrls());
        drag.setAccepted(isWelcome);
        if (isWelcome) {
            drag.setDropAction(Qt::CopyAction);
        }
        if (isWelcome && isDrop) {
            PostDrop(Kind, Object, WindowNumberOf(widget), drag);
        }
        return true;
    }

  private:
    static inline const QString Name = "drop target";

    const bool acceptedBefore;
    const std::uint32_t Kind;
    const std::int64_t Object;
};

}  // namespace

void TakeDrops(QWidget& view, bool takes, std::uint32_t kind, std::int64_t object) {
    DropTarget* const present = DropTarget::Of(view);
    if (takes && present == nullptr) {
        new DropTarget(view, kind, object);
    } else if (!takes && present != nullptr) {
        view.setAcceptDrops(present->AcceptedBefore());
        delete present;
    }
}

}  // namespace rotavel
