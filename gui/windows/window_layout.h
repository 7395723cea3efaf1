#pragma once

#include <vector>

#include <QSize>
#include <QWidget>

#include "gui/windows/content_scroll.h"

class QMenuBar;

namespace rotavel {

// What stands in a window: the menu bar on top, if there is one, and below it the content at
// exactly the size asked for, with footers along the bottom of what is to be seen of it. Where the
// screen has no room for that, the window is as large as fits and its content scrolls.
class WindowLayout {
  public:
    WindowLayout(QWidget& laidOutWindow, QWidget& view, bool canBeResized);

    QMenuBar* MenuBar() const { return menuBar; }
    // Puts a menu bar, or none, above the content, which keeps its size. The bar before stays a
    // hidden child of the window.
    void SetMenuBar(QMenuBar* bar);
    // Menu bar and scrolling, also of a bar that comes later.
    void Enable(bool enables);
    // Puts a widget of the content view along the bottom, at its minimum height.
    void AddFooter(QWidget* footer);
    void RemoveFooter(QWidget* footer);

    // Of what is to be seen of the content, in the window.
    QPoint ContentCorner() const { return {0, MenuBarHeight(window.width())}; }
    QSize ContentSize() const { return content; }
    void SetContentSize(QSize size);

    bool IsResizable() const { return resizable; }
    // Whether the window is too small for its content.
    bool IsScrolled() const { return scroll.IsNeeded(); }
    ContentScroll& Scroll() { return scroll; }
    // Whether the window is larger than the screen has room for.
    bool IsTooLarge() const;

    // Follows the window's size.
    void Apply();

  private:
    int MenuBarHeight(int width) const;
    int FooterHeight() const;
    QSize WindowSizeFor(QSize size) const;

    QWidget& window;
    QWidget& contentView;
    const bool resizable;
    ContentScroll scroll;
    QMenuBar* menuBar = nullptr;
    std::vector<QWidget*> footers;
    bool isEnabled = true;
    QSize content;
    // What the program asked for, and the window that was made for it.
    QSize askedContent;
    QSize askedWindow;
};

}  // namespace rotavel
