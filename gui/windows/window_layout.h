#pragma once

#include <vector>

#include <QPointer>
#include <QSize>
#include <QWidget>

class QMenuBar;

namespace rotavel {

// What stands in a window: the menu bar on top, if there is one, and below it the content at
// exactly the size asked for, with footers along the bottom.
class WindowLayout {
  public:
    WindowLayout(QWidget& laidOutWindow, QWidget& view, bool canBeResized);

    QMenuBar* MenuBar() const { return menuBar; }
    // Puts a menu bar, or none, above the content, which keeps its size. The bar before stays a
    // hidden child of the window.
    void SetMenuBar(QMenuBar* bar);
    // The menu bar, also one that comes later.
    void Enable(bool enables);
    // Puts a widget of the content view along the bottom, at its minimum height.
    void AddFooter(QWidget* footer);

    // Of what is to be seen of the content, in the window.
    QPoint ContentCorner() const { return {0, MenuBarHeight(window.width())}; }
    QSize ContentSize() const { return content; }
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
    std::vector<QPointer<QWidget>> footers;
    bool isEnabled = true;
    QSize content;
    QSize contentMinimum;
    QSize contentMaximum;
};

}  // namespace rotavel
