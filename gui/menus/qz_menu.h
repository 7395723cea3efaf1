#pragma once

#include <cstdint>
#include <vector>

#include <QIcon>
#include <QKeySequence>
#include <QMenu>

namespace rotavel {

// What becomes one line of a menu.
struct MenuEntry {
    std::int64_t Number = 0;
    QString Title;
    QKeySequence Keys;
    QIcon Icon;
    bool IsSeparator = false;
};

// The toolkit's form of an entry.
QAction* MakeAction(const MenuEntry& entry, QObject* parent);

// A menu of a bar. A letter chooses the item that begins with it or, where several do, goes from
// one to the next. Thousands of items cost next to nothing until the menu opens.
class QzMenu final : public QMenu {
  public:
    QzMenu(const QString& title, QWidget* parent);

    // Adds an entry without keys, which nobody needs before the menu opens.
    void AddLater(MenuEntry entry);
    // Makes what was added so far: before anything else is added, and when the menu opens.
    void Complete();

    // A click on the widget that opened the menu closes it and is no second click on that widget.
    void SetOpener(const QWidget* widget) { opener = widget; }

    void SelectFirst();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void Press(Qt::Key key);
    void Select(QAction& action);

    std::vector<MenuEntry> later;
    const QWidget* opener = nullptr;
    bool isAltAlone = false;  // Alt was pressed, and no other key since
};

}  // namespace rotavel
