#pragma once

#include <optional>
#include <utility>
#include <vector>

#include <QApplication>

#include "gui/event_loop.h"

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

    static QzApplication* Instance();

    void AddFilter(NativeEventFilter filter, void* userValue);
    void RemoveFilter(NativeEventFilter filter, void* userValue);

    bool notify(QObject* receiver, QEvent* event) override;

  protected:
    bool event(QEvent* event) override;

  private:
    static void FollowFocus(QWidget* before, QWidget* now);
    // Whether a filter has handled a native event.
    bool IsFiltered(QEvent& event);
    bool Offer(QEvent& event) const;
    // Whether a key event is a shortcut of the window it goes to.
    static bool TakesShortcut(QObject* nativeWindow, QEvent* event);

    std::vector<std::pair<NativeEventFilter, void*>> filters;
    std::optional<quint64> offeredKeyTime;  // of a key whose press itself is still to come
    bool isOfferedKeyHandled = false;
};

}  // namespace rotavel
