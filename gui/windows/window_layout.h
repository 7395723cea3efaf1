#pragma once

#include <QSize>

class QMenuBar;
class QWidget;

namespace rotavel {

// What stands in a window: the menu bar on top, if there is one, and below it the content view at
// exactly the size asked for.
class WindowLayout {
  public:
    WindowLayout(QWidget& laidOutWindow, QWidget& view, bool canBeResized);

    QMenuBar* MenuBar() const { return menuBar; }
    // Puts a menu bar, or none, above the content, which keeps its size. The bar before stays a
    // hidden child of the window.
    void SetMenuBar(QMenuBar* bar);
    // Of this bar and of each that takes its place.
    void EnableMenuBar(bool enables);

    QSize ContentSize() const;
    void SetContentSize(QSize size);
    QSize ContentMinimumSize() const { return contentMinimum; }
    QSize ContentMaximumSize() const { return contentMaximum; }
    void SetContentLimits(QSize minimum, QSize maximum);

    // Follows the window's size.
    void Apply();

  private:
    int MenuBarHeight(int width) const;

    QWidget& window;
    QWidget& contentView;
    const bool resizable;
    QMenuBar* menuBar = nullptr;
    bool menuBarEnabled = true;
    QSize contentMinimum;
    QSize contentMaximum;
};

}  // namespace rotavel
