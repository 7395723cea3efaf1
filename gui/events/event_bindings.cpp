#include "gui/events/event_bindings.h"

#include <algorithm>
#include <array>

namespace rotavel {

namespace {

std::string BindingKey(std::uint32_t kind, WindowNumber window, std::int64_t object,
                       std::int64_t type) {
    return std::to_string(kind) + ":" + std::to_string(window) + ":" + std::to_string(object) +
           ":" + std::to_string(type);
}

}  // namespace

void EventBindings::Bind(EventCallback callback, std::uint32_t kind, WindowNumber window,
                         std::int64_t object, std::int64_t type) {
    bindings[BindingKey(kind, window, object, type)].push_back(
        std::make_shared<const Binding>(Binding{window, callback}));
}

void EventBindings::Unbind(EventCallback callback, std::uint32_t kind, WindowNumber window,
                           std::int64_t object, std::int64_t type) {
    const auto bound = bindings.find(BindingKey(kind, window, object, type));
    if (bound == bindings.end()) {
        return;
    }
    std::erase_if(bound->second,
                  [callback](const auto& each) { return each->Callback == callback; });
    if (bound->second.empty()) {
        bindings.erase(bound);
    }
}

void EventBindings::UnbindWindow(WindowNumber window) {
    std::erase_if(bindings,
                  [window](const auto& entry) { return entry.second.front()->Window == window; });
}

void EventBindings::Run(std::uint32_t kind, WindowNumber window, std::int64_t object,
                        std::int64_t type) const {
    if (bindings.empty()) {
        return;
    }
    const std::array<std::string, 5> keys = {
        BindingKey(kind, window, object, type), BindingKey(kind, window, object, -1),
        BindingKey(kind, window, -1, -1), BindingKey(kind, -1, -1, -1),
        BindingKey(kind, -1, object, type)};
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        // The keys of an event that has a -1 of its own may coincide.
        const auto bound =
            std::find(keys.begin(), key, *key) == key ? bindings.find(*key) : bindings.end();
        if (bound == bindings.end()) {
            continue;
        }
        const std::vector<std::weak_ptr<const Binding>> present(bound->second.begin(),
                                                                bound->second.end());
        for (const auto& each : present) {
            if (const auto binding = each.lock()) {
                binding->Callback();
            }
        }
    }
}

}  // namespace rotavel
