#include "gui/windows/window_layout.h"

#include <algorithm>
#include <utility>

#include <QMenuBar>

#include "gui/windows/window_frame.h"

namespace rotavel {

namespace {

bool IsWithin(QSize size, QSize room) {
    return size.width() <= room.width() && size.height() <= room.height();
}

}  // namespace

WindowLayout::WindowLayout(QWidget& laidOutWindow, QWidget& view, bool canBeResized)
    : window(laidOutWindow),
      contentView(view),
      resizable(canBeResized),
      scroll(laidOutWindow, [this] { Apply(); }) {}

void WindowLayout::SetMenuBar(QMenuBar* bar) {
    if (bar == menuBar) {
        return;
    }
    QMenuBar* const before = std::exchange(menuBar, bar);
    if (menuBar != nullptr) {
        menuBar->setParent(&window);
        menuBar->setEnabled(isEnabled);
        menuBar->show();
    }
    SetContentSize(content);
    if (before != nullptr) {
        before->hide();  // last: it may have the keyboard, and a callback may change the bar again
    }
}

void WindowLayout::Enable(bool enables) {
    isEnabled = enables;
    Apply();
    if (menuBar != nullptr) {
        menuBar->setEnabled(enables);  // last: it may have the keyboard
    }
}

void WindowLayout::RemoveFooter(QWidget* footer) {
    std::erase(footers, footer);
}

void WindowLayout::AddFooter(QWidget* footer) {
    footers.push_back(footer);
    Apply();
}

void WindowLayout::SetContentSize(QSize size) {
    content = size;
    askedContent = size;
    askedWindow = WindowSizeFor(size);
    if (resizable) {
        window.setMinimumHeight(MenuBarHeight(window.width()));
        window.resize(askedWindow);
    } else if (IsCompositorInCharge()) {
        window.resize(askedWindow);  // a limit would contradict the size that it decides on
    } else {
        window.setFixedSize(askedWindow);
    }
    Apply();
}

bool WindowLayout::IsTooLarge() const {
    return !IsWithin(window.size(), RoomFor(window));
}

void WindowLayout::Apply() {
    const int top = MenuBarHeight(window.width());
    if (menuBar != nullptr) {
        menuBar->setGeometry(0, 0, window.width(), top);
    }
    const QSize below(window.width(), std::max(window.height() - top, 0));
    if (resizable) {
        content = window.size() == askedWindow ? askedContent : below;
    }
    const QSize footer(0, FooterHeight());
    scroll.Place({QPoint(0, top), below - footer}, content - footer, isEnabled);
    const QPoint offset = scroll.Offset();
    // Reaches as far as the window does, whatever is scrolled.
    contentView.setGeometry(-offset.x(), top - offset.y(),
                            std::max(content.width(), offset.x() + below.width()),
                            std::max(content.height(), offset.y() + below.height()));
    for (QWidget* const each : footers) {
        const int height = each->minimumHeight();
        // Runs out of the window if it is wider, unless that cannot show all of its content anyway.
        const int width =
            IsScrolled() ? below.width() : std::max(below.width(), each->sizeHint().width());
        each->setGeometry(offset.x(), offset.y() + below.height() - height, width, height);
    }
}

int WindowLayout::MenuBarHeight(int width) const {
    return menuBar == nullptr ? 0 : menuBar->heightForWidth(width);
}

int WindowLayout::FooterHeight() const {
    int height = 0;
    for (const QWidget* const each : footers) {
        height = std::max(height, each->minimumHeight());
    }
    return height;
}

QSize WindowLayout::WindowSizeFor(QSize size) const {
    const QSize menu(0, MenuBarHeight(size.width()));
    const QSize footer(0, FooterHeight());
    const QSize room = RoomFor(window);
    if (IsWithin(size + menu, room)) {
        return size + menu;
    }
    const QSize bars = ContentScroll::BarsFor(size - footer, room - menu - footer);
    return (size + menu + bars).boundedTo(room);
}

}  // namespace rotavel
