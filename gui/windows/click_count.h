#pragma once

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>

namespace rotavel {

// How many clicks of one button a view has had in quick succession at one place: 1, 2, 3 and so on.
// The toolkit itself tells pairs only.
class ClickCount {
  public:
    // To be told of each press, those that the toolkit takes for a double click included.
    void Press(const QMouseEvent& event) {
        count = Continues(event) ? count + 1 : 1;
        button = event.button();
        time = event.timestamp();
        place = event.position();
    }

    // Of the click that ends with the release of `released`.
    int Of(Qt::MouseButton released) const { return released == button ? count : 1; }

  private:
    bool Continues(const QMouseEvent& event) const {
        const QStyleHints& hints = *QGuiApplication::styleHints();
        const bool isQuick = event.timestamp() - time < quint64(hints.mouseDoubleClickInterval());
        const bool isNear =
            (event.position() - place).manhattanLength() < qreal(hints.mouseDoubleClickDistance());
        return event.type() == QEvent::MouseButtonDblClick ||
               (event.button() == button && count > 1 && isQuick && isNear);
    }

    int count = 0;
    Qt::MouseButton button = Qt::NoButton;
    quint64 time = 0;
    QPointF place;
};

}  // namespace rotavel
