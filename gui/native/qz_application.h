#pragma once

#include <utility>
#include <vector>

#include <QApplication>

#include "gui/event_loop.h"

namespace rotavel {

// The toolkit's application object: sees every native event before it is delivered, follows the
// keyboard focus, and turns a quit request from the session into an event instead of obeying it.
class QzApplication final : public QApplication {
  public:
    QzApplication(int& argumentCount, char** arguments);

    static QzApplication* Instance();

    void AddFilter(NativeEventFilter filter, void* userValue);
    void RemoveFilter(NativeEventFilter filter, void* userValue);

    // Whether a native event was delivered since the last call.
    bool TakeNativeEventSeen() { return std::exchange(nativeEventSeen, false); }

    bool notify(QObject* receiver, QEvent* event) override;

  protected:
    bool event(QEvent* event) override;

  private:
    bool IsFiltered(QEvent* event) const;

    std::vector<std::pair<NativeEventFilter, void*>> filters;
    bool nativeEventSeen = false;
};

}  // namespace rotavel
