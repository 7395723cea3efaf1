#include "gui/windows/window_layout.h"

#include <algorithm>

#include <QMenuBar>

namespace rotavel {

WindowLayout::WindowLayout(QWidget& laidOutWindow, QWidget& view, bool canBeResized)
    : window(laidOutWindow),
      contentView(view),
      resizable(canBeResized),
      contentMinimum(0, 0),
      contentMaximum(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) {}

void WindowLayout::SetMenuBar(QMenuBar* bar) {
    if (bar == menuBar) {
        return;
    }
    if (menuBar != nullptr) {
        menuBar->hide();
    }
    menuBar = bar;
    if (menuBar != nullptr) {
        menuBar->setParent(&window);
        menuBar->setEnabled(isEnabled);
        menuBar->show();
    }
    SetContentSize(content);
}

void WindowLayout::Enable(bool enables) {
    isEnabled = enables;
    if (menuBar != nullptr) {
        menuBar->setEnabled(enables);
    }
}

void WindowLayout::AddFooter(QWidget* footer) {
    footers.emplace_back(footer);
    Apply();
}

void WindowLayout::SetContentSize(QSize size) {
    content = size;
    const QSize whole(size.width(), size.height() + MenuBarHeight(size.width()));
    if (resizable) {
        SetContentLimits(contentMinimum, contentMaximum);
        window.resize(whole);
    } else {
        window.setFixedSize(whole);
    }
    Apply();
}

void WindowLayout::SetContentLimits(QSize minimum, QSize maximum) {
    contentMinimum = minimum;
    contentMaximum = maximum;
    if (resizable) {
        const int barHeight = MenuBarHeight(window.width());
        window.setMinimumSize(minimum.width(), minimum.height() + barHeight);
        window.setMaximumSize(maximum.width(),
                              std::min(maximum.height() + barHeight, QWIDGETSIZE_MAX));
    }
}

void WindowLayout::Apply() {
    const int top = MenuBarHeight(window.width());
    if (menuBar != nullptr) {
        menuBar->setGeometry(0, 0, window.width(), top);
    }
    const QSize below(window.width(), std::max(window.height() - top, 0));
    if (resizable) {
        content = below;
    }
    contentView.setGeometry(0, top, below.width(), below.height());
    std::erase(footers, nullptr);
    for (const QPointer<QWidget>& each : footers) {
        const int height = each->minimumHeight();
        // Runs out of the window if it is wider.
        const int width = std::max(below.width(), each->sizeHint().width());
        each->setGeometry(0, below.height() - height, width, height);
    }
}

int WindowLayout::MenuBarHeight(int width) const {
    return menuBar == nullptr ? 0 : menuBar->heightForWidth(width);
}

}  // namespace rotavel
