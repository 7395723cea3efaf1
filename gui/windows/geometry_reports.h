#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QRect>

namespace rotavel {

class QzWindow;

// Tells a window's delegate of each move, new size and zoom, and of nothing that is only a step of
// the window manager's on the way: framing a new window, or answering one request after the other.
class GeometryReports final : public QObject {
  public:
    explicit GeometryReports(QzWindow& reportedWindow);

    // The window is about to be shown where it is to be; until it settles there nothing is told.
    void Begin();
    // The window is on the screen and its frame stands.
    void Settle();
    bool IsSettled() const { return settled; }

    // Tells what differs from what was told last.
    void Report();
    // The same once all that has come in by now has been dealt with.
    void ReportLater();
    // The same after the program has given the window new bounds.
    void ReportNewBounds();

  private:
    void ReportInTime();
    bool HasZoomed() const;
    QRect Current() const;
    QPoint Inset() const;

    QzWindow& window;
    QRect reported;        // frame position and content size that the delegate knows
    QPoint reportedInset;  // of the inside to the frame, at that time
    bool wasZoomed = false;
    bool settled = false;
    bool isReportDue = false;
    QDeadlineTimer boundsAnswered;
};

}  // namespace rotavel
