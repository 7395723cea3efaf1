#include "gui/windows/content_scroll.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>
#include <QWindow>

namespace rotavel {

namespace {

// In pixels.
constexpr int LineStep = 20;   // of an arrow key
constexpr int EdgeWidth = 24;  // along an edge, where the pointer scrolls
constexpr int EdgeStep = 8;    // that it scrolls at a time

constexpr int EdgeTickMs = 16;

int BarWidth() {
    return QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void SetExtent(QScrollBar& bar, int whole, int seen) {
    const QSignalBlocker quiet(bar);
    bar.setRange(0, std::max(whole - seen, 0));
    bar.setPageStep(seen);
    bar.setSingleStep(LineStep);
}

// Sent in the usual way, what a bar does not take would come back to the window.
void Hand(QEvent& event, QObject& bar) {
    bar.event(&event);
}

void RevealAlong(QScrollBar& bar, int first, int last) {
    const int least = last - bar.pageStep();
    if (first < least && last > bar.value() && first < bar.value() + bar.pageStep()) {
        return;  // more than can be seen, and some of it is
    }
    bar.setValue(std::min(std::max(bar.value(), least), first));
}

}  // namespace

ContentScroll::ContentScroll(QWidget& scrolledWindow, std::function<void()> scrolled)
    : window(scrolledWindow), tellScrolled(std::move(scrolled)) {}

QSize ContentScroll::BarsFor(QSize content, QSize room) {
    bool isDown = content.height() > room.height();
    const bool isAcross = content.width() > room.width() - (isDown ? BarWidth() : 0);
    isDown = isDown || (isAcross && content.height() > room.height() - BarWidth());
    return {isDown ? BarWidth() : 0, isAcross ? BarWidth() : 0};
}

void ContentScroll::Place(const QRect& room, QSize content, bool isEnabled) {
    isNeeded = content.width() > room.width() || content.height() > room.height();
    if (down == nullptr && !isNeeded) {
        return;
    }
    if (down == nullptr) {
        Create();
    }
    const QSize taken = isNeeded ? BarsFor(content, room.size()) : QSize(0, 0);
    view = QRect(room.topLeft(), room.size() - taken);
    across->setGeometry(room.left(), view.bottom() + 1, room.width(), taken.height());
    down->setGeometry(view.right() + 1, view.top(), taken.width(), view.height());
    across->setVisible(taken.height() > 0);
    down->setVisible(taken.width() > 0);
    SetExtent(*across, content.width(), view.width());
    SetExtent(*down, content.height(), view.height());
    across->setEnabled(isEnabled);
    down->setEnabled(isEnabled);
    if (window.windowHandle() != nullptr) {
        window.windowHandle()->installEventFilter(this);
    }
}

void ContentScroll::Create() {
    across = new QScrollBar(Qt::Horizontal, &window);
    down = new QScrollBar(Qt::Vertical, &window);
    for (QScrollBar* const bar : {across, down}) {
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        connect(bar, &QScrollBar::valueChanged, this, &ContentScroll::Scrolled);
    }
}

QPoint ContentScroll::Offset() const {
    return down == nullptr ? QPoint() : QPoint(across->value(), down->value());
}

void ContentScroll::Reveal(const QRect& part) {
    if (isNeeded) {
        FollowPointer({-1, -1});  // the keys lead until it moves again
        RevealAlong(*across, part.left(), part.right() + 1);
        RevealAlong(*down, part.top(), part.bottom() + 1);
    }
}

void ContentScroll::TakeWheel(QWheelEvent& event) {
    if (isNeeded) {
        edgeTimer.stop();
        const QPoint turn = event.angleDelta();
        Hand(event, std::abs(turn.x()) > std::abs(turn.y()) ? *across : *down);
    }
}

void ContentScroll::TakeKey(QKeyEvent& event) {
    if (isNeeded) {
        edgeTimer.stop();
        const bool isAcross = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
        Hand(event, isAcross ? *across : *down);
    }
}

bool ContentScroll::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        const auto& move = static_cast<const QMouseEvent&>(*event);
        if (move.source() == Qt::MouseEventSynthesizedByApplication) {
            return false;  // told by Scrolled
        }
        FollowPointer(move.buttons() == Qt::NoButton ? move.position().toPoint() : QPoint(-1, -1));
    } else if (event->type() == QEvent::Leave) {
        FollowPointer({-1, -1});
    }
    return false;
}

void ContentScroll::FollowPointer(QPoint place) {
    pointer = place;
    const bool scrolls = StepAlong(*across) != 0 || StepAlong(*down) != 0;
    if (!scrolls) {
        edgeTimer.stop();
    } else if (!edgeTimer.isActive()) {
        edgeTimer.start(EdgeTickMs, this);
    }
}

int ContentScroll::StepAlong(const QScrollBar& bar) const {
    const QWidget* const gadget = window.childAt(pointer);
    const bool isOnGadget = gadget != nullptr && gadget->parentWidget() != &window;
    if (!isNeeded || !bar.isEnabled() || !view.contains(pointer) || !isOnGadget) {
        return 0;
    }
    const QRect part(gadget->mapTo(&window, QPoint()), gadget->size());
    const auto along = [&](QPoint way) { return &bar == across ? way.x() : way.y(); };
    const int hiddenBefore = along(view.topLeft() - part.topLeft());
    const int hiddenBehind = along(part.bottomRight() - view.bottomRight());
    if (hiddenBehind > 0 && along(view.bottomRight() - pointer) < EdgeWidth) {
        return std::min(EdgeStep, hiddenBehind);
    }
    if (hiddenBefore > 0 && along(pointer - view.topLeft()) < EdgeWidth) {
        return -std::min(EdgeStep, hiddenBefore);
    }
    return 0;
}

void ContentScroll::timerEvent(QTimerEvent*) {
    for (QScrollBar* const bar : {across, down}) {
        bar->setValue(bar->value() + StepAlong(*bar));
    }
    FollowPointer(pointer);
}

void ContentScroll::Scrolled() {
    tellScrolled();
    if (view.contains(pointer) && window.windowHandle() != nullptr) {
        // The pointer is over another place of the content now.
        QApplication::postEvent(
            window.windowHandle(),
            new QMouseEvent(QEvent::MouseMove, pointer, pointer, window.mapToGlobal(pointer),
                            Qt::NoButton, Qt::NoButton, QGuiApplication::keyboardModifiers(),
                            Qt::MouseEventSynthesizedByApplication));
    }
}

}  // namespace rotavel
