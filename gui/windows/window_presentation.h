#pragma once

#include <cstdint>
#include <optional>

#include <QDeadlineTimer>
#include <QMetaObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QSize>

namespace rotavel {

class QzWindow;

// How a window comes onto the screen: when the program next waits, where its flags want it, and in
// the frame that the window manager gives it at its own pace; and how it stays there when the
// screen becomes another.
class WindowPresentation {
  public:
    // `creationFlags` are those of WindowCreate.
    WindowPresentation(QzWindow& presentedWindow, std::uint32_t creationFlags);

    bool IsVisibleOrPending() const;
    // On the screen and painted.
    bool Stands() const { return stands; }

    // Moves the frame; a popup without room there stands where there is some.
    void SetCorner(QPoint corner);
    // Gives the content a size; a window that was on the screen as a whole stays so until it is
    // shown first.
    void SetContentSize(QSize size);
    // Also waits until a window that starts zoomed is.
    QSize ZoomedContentSize();

    // Centres the window if its flags ask for that. Where it is then, it is to be shown.
    void TakePlace();
    // The same for the last time: where it is then, it stays.
    void KeepPlace();

    // Shows the window when the program next waits. Flags as for WindowShow.
    void Show(std::uint32_t showFlags);
    void Hide();
    void PresentIfPending();
    // Puts a window that is to be shown on the screen and waits until its frame is the true one.
    void EnsureFramed();
    // The content view was painted: the window stands.
    void ContentPainted();

  private:
    void Present();
    void MakeNativeWindow();
    bool IsAwaited() const;
    void FollowScreen();
    // Makes the window as large as its content asks for and its screen has room for.
    void FitOntoScreen();

    QzWindow& window;
    std::uint32_t flags;      // what the next presentation goes by
    QPointer<QzWindow> over;  // the window to centre over
    QPoint popupCorner;       // where the program wants a popup
    bool isPending = false;
    bool isUnderWay = false;
    bool stands = false;
    QDeadlineTimer patience;
    QMetaObject::Connection roomChanges;
    QRect room;  // of its screen when the window was last fitted onto it
    // Of the window until its frame has moved it, and until it is zoomed.
    std::optional<QPoint> unframedCorner;
    std::optional<QSize> unzoomedSize;
};

}  // namespace rotavel
