#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "gui/event_queue.h"

namespace rotavel {

// The callbacks bound to events, under texts that are made of an event's kind, window, object and
// type. A callback may bind and unbind whatever it likes.
class EventBindings {
  public:
    void Bind(EventCallback callback, std::uint32_t kind, WindowNumber window, std::int64_t object,
              std::int64_t type);
    void Unbind(EventCallback callback, std::uint32_t kind, WindowNumber window,
                std::int64_t object, std::int64_t type);
    void UnbindWindow(WindowNumber window);
    void Clear() { bindings.clear(); }

    // Runs what is bound to an event, in the order that event_queue.h tells. A callback that is
    // unbound meanwhile is not run any more.
    void Run(std::uint32_t kind, WindowNumber window, std::int64_t object, std::int64_t type) const;

  private:
    struct Binding {
        WindowNumber Window;
        EventCallback Callback;
    };
    // Nobody else owns a binding: one that is unbound while others of its list run is gone.
    using Bindings = std::vector<std::shared_ptr<const Binding>>;

    std::unordered_map<std::string, Bindings> bindings;
};

}  // namespace rotavel
