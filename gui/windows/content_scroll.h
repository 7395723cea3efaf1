#pragma once

#include <functional>

#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <QRect>

class QKeyEvent;
class QScrollBar;
class QWheelEvent;
class QWidget;

namespace rotavel {

// The scroll bars of a window that is too small for its content, made at the first need. Besides
// them the wheel and the keys scroll, and the pointer near an edge that cuts the gadget under it.
class ContentScroll final : public QObject {
  public:
    // `scrolled` is called when the part of the content that is to be seen is another.
    ContentScroll(QWidget& scrolledWindow, std::function<void()> scrolled);

    // What the bars take of a room of this size, in width and in height.
    static QSize BarsFor(QSize content, QSize room);

    // Puts the bars that content of this size needs along the edges of a part of the window.
    void Place(const QRect& room, QSize content, bool isEnabled);
    bool IsNeeded() const { return isNeeded; }
    // The corner of the content that is to be seen.
    QPoint Offset() const;

    // Scrolls as little as shows a part of the content; not at all for one larger than what can be
    // seen, where some of it is seen already.
    void Reveal(const QRect& part);
    // Wheel and keys that nothing in the content has taken.
    void TakeWheel(QWheelEvent& event);
    void TakeKey(QKeyEvent& event);

    bool eventFilter(QObject* nativeWindow, QEvent* event) override;

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    void Create();
    void Scrolled();
    void FollowPointer(QPoint place);
    // How far the pointer scrolls along a bar: near an edge, towards what is hidden there of the
    // gadget that it is on. So no gadget that is whole moves away from under it.
    int StepAlong(const QScrollBar& bar) const;

    QWidget& window;
    const std::function<void()> tellScrolled;
    QScrollBar* across = nullptr;
    QScrollBar* down = nullptr;
    QRect view;  // where the content is to be seen
    bool isNeeded = false;
    QPoint pointer{-1, -1};  // on the window, while it is on the view and leads
    QBasicTimer edgeTimer;
};

}  // namespace rotavel
