#pragma once

#include <cstdint>

#include <QMenuBar>

#include "gui/menus/application_menu.h"

namespace rotavel {

class QzMenu;

// A window's menu bar, with the application menu in front. Alt with a title's first letter opens
// its menu (the next one, where several titles have it), F10 or Alt alone takes the keyboard to the
// bar. Where the window is too narrow for the bar a button opens the rest.
class QzMenuBar final : public QMenuBar {
  public:
    explicit QzMenuBar(QWidget* window);

    // Whether these are the keys of a command of the bar's that can be chosen.
    bool HasKeys(const QKeySequence& keys) const;
    // Lets About or Preferences be chosen; keys of theirs are no other item's from then on.
    void EnableApplicationItem(std::int64_t number);

    // Whether a key that no command of the bar's has is one for the bar: then it is done.
    bool TakesKey(const QKeyEvent& event);
    // The same for the keys of the application menu's commands, also while the bar is disabled.
    bool TakesApplicationKey(const QKeyEvent& event);

    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void TakeOverRest();
    void OpenRest();
    bool OpenByLetter(QChar letter);
    void Open(QAction& title);
    void TakeKeyboard();
    void ForgetAlt();

    const ApplicationMenu application;
    QzMenu* rest = nullptr;  // the titles that the window is too narrow for
};

}  // namespace rotavel
