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
    const QSize content = ContentSize();
    if (menuBar != nullptr) {
        menuBar->hide();
    }
    menuBar = bar;
    if (menuBar != nullptr) {
        menuBar->setParent(&window);
        menuBar->setEnabled(menuBarEnabled);
        menuBar->show();
    }
    SetContentSize(content);
}

void WindowLayout::EnableMenuBar(bool enables) {
    menuBarEnabled = enables;
    if (menuBar != nullptr) {
        menuBar->setEnabled(enables);
    }
}

QSize WindowLayout::ContentSize() const {
    return contentView.size();
}

void WindowLayout::SetContentSize(QSize size) {
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
    const int barHeight = MenuBarHeight(window.width());
    if (menuBar != nullptr) {
        menuBar->setGeometry(0, 0, window.width(), barHeight);
    }
    contentView.setGeometry(0, barHeight, window.width(), std::max(window.height() - barHeight, 0));
}

int WindowLayout::MenuBarHeight(int width) const {
    return menuBar == nullptr ? 0 : menuBar->heightForWidth(width);
}

}  // namespace rotavel
