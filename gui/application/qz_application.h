#pragma once

#include <optional>

#include <QApplication>

#include "gui/toolkit/late_keys.h"

namespace rotavel {

// Answers the system's requests to the program.
class QzApplicationDelegate {
  public:
    // A quit request from the session becomes an event: the program ends by its own decision only.
    static bool ApplicationShouldTerminate();
};

// The toolkit's application object: sees every native event before it is delivered, and follows
// the keyboard focus.
class QzApplication final : public QApplication {
  public:
    QzApplication(int& argumentCount, char** arguments);

    bool notify(QObject* receiver, QEvent* event) override;

  protected:
    bool event(QEvent* event) override;

  private:
    static void FollowFocus(QWidget* before, QWidget* now);
    // Whether a filter has handled a native event.
    bool IsFiltered(QEvent& event);
    // Whether a key event is a shortcut of the window it goes to.
    static bool TakesShortcut(QObject* nativeWindow, QEvent* event);

    LateKeys lateKeys;
    std::optional<quint64> offeredKeyTime;  // of a key whose press itself is still to come
    bool isOfferedKeyHandled = false;
};

}  // namespace rotavel
