#pragma once

#include <cstdint>

#include <QWidget>

#include "gui/windows/click_count.h"

namespace rotavel {

// The content view of every window: holds the gadgets, and reports painting and the clicks that no
// gadget takes.
class QzFlippedWindowView final : public QWidget {
  public:
    explicit QzFlippedWindowView(QWidget* window) : QWidget(window) {}

    std::int64_t WindowID = -1;

  protected:
    void childEvent(QChildEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void Post(std::uint32_t kind) const;

    ClickCount clicks;
    bool tellsPainting = false;
};

// Lies over a disabled window's content and swallows every click. Remembers which buttons of the
// title bar were enabled before.
class QzDisabledView final : public QWidget {
  public:
    QzDisabledView(QWidget* contentView, Qt::WindowFlags windowFlags);

    Qt::WindowFlags EnabledButtons() const;

  protected:
    bool event(QEvent* event) override;

  private:
    bool CloseButtonEnabled;
    bool MinimizeButtonEnabled;
    bool MaximizeButtonEnabled;
};

}  // namespace rotavel
