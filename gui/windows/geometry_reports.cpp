#include "gui/windows/geometry_reports.h"

#include <utility>

#include <QTimer>

#include "gui/windows/qz_window.h"
#include "gui/windows/qz_window_events.h"

namespace rotavel {

namespace {

// How long a window manager's answers to new bounds may take.
constexpr int BoundsAnswerMs = 250;

}  // namespace

GeometryReports::GeometryReports(QzWindow& reportedWindow) : window(reportedWindow) {}

void GeometryReports::Begin() {
    if (settled) {
        ReportNewBounds();
    }
    // Where the window is to be: on the way there the window manager may show it elsewhere.
    reported = Current();
    wasZoomed = window.isMaximized();
    settled = settled && window.isVisible();
}

void GeometryReports::Settle() {
    settled = true;
    reported.setSize(window.ContentSize());
    reportedInset = Inset();
    wasZoomed = window.isMaximized();
}

void GeometryReports::Report() {
    if (window.Delegate() == nullptr) {
        return;  // the window is closed and about to go
    }
    const QRect current = Current();
    const bool resizes = current.size() != reported.size();
    const bool zooms = HasZoomed();
    if (zooms && !resizes) {
        return;  // a zoom is told as one; its size is still to come
    }
    const QRect before = std::exchange(reported, current);
    const bool isFramedAnew = std::exchange(reportedInset, Inset()) != Inset();
    wasZoomed = window.isMaximized();
    // A frame that the window manager adds or changes moves nothing, and where a zoom puts the
    // window is part of the zoom.
    const bool moves =
        current.topLeft() != before.topLeft() && !isFramedAnew && !zooms && !wasZoomed;
    if (zooms) {
        window.Delegate()->WindowShouldZoom(current.width() > before.width() ||
                                            current.height() > before.height());
    }
    if (resizes) {
        window.Delegate()->WindowDidResize();
    }
    if (moves && window.Delegate() != nullptr) {
        window.Delegate()->WindowDidMove();
    }
}

void GeometryReports::ReportLater() {
    if (settled && (!isReportDue || HasZoomed())) {
        isReportDue = true;
        QMetaObject::invokeMethod(this, &GeometryReports::ReportInTime, Qt::QueuedConnection);
    }
}

void GeometryReports::ReportInTime() {
    if (!boundsAnswered.hasExpired() && !HasZoomed()) {
        QTimer::singleShot(boundsAnswered.remainingTime(), this, &GeometryReports::ReportInTime);
        return;
    }
    isReportDue = false;
    Report();
}

void GeometryReports::ReportNewBounds() {
    Report();
    // The window manager answers request by request, and each answer first takes the window back
    // to bounds that the program has left already.
    if (window.isVisible() && window.windowType() == Qt::Window) {
        boundsAnswered.setRemainingTime(BoundsAnswerMs);
    }
}

bool GeometryReports::HasZoomed() const {
    return window.isMaximized() != wasZoomed;
}

QRect GeometryReports::Current() const {
    return {window.pos(), window.ContentSize()};
}

QPoint GeometryReports::Inset() const {
    return window.geometry().topLeft() - window.pos();
}

}  // namespace rotavel
