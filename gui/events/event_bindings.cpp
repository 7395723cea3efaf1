#include "gui/events/event_bindings.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdio>

namespace rotavel {

namespace {

std::string BindingKey(std::uint32_t kind, WindowNumber window, std::int64_t object,
                       std::int64_t type) {
    std::array<char, 80> key{};
    std::snprintf(key.data(), key.size(), "%" PRIu32 ":%" PRId64 ":%" PRId64 ":%" PRId64, kind,
                  window, object, type);
    return key.data();
}

}  // namespace

void EventBindings::Bind(EventCallback callback, std::uint32_t kind, WindowNumber window,
                         std::int64_t object, std::int64_t type) {
    bindings[BindingKey(kind, window, object, type)].push_back(
        std::make_shared<Binding>(Binding{window, callback}));
}

void EventBindings::Unbind(EventCallback callback, std::uint32_t kind, WindowNumber window,
                           std::int64_t object, std::int64_t type) {
    const auto bound = bindings.find(BindingKey(kind, window, object, type));
    if (bound == bindings.end()) {
        return;
    }
    std::erase_if(bound->second, [callback](const std::shared_ptr<Binding>& each) {
        each->IsBound = each->Callback != callback;
        return !each->IsBound;
    });
    if (bound->second.empty()) {
        bindings.erase(bound);
    }
}

void EventBindings::UnbindWindow(WindowNumber window) {
    std::erase_if(bindings, [window](const auto& entry) {
        const bool isOfWindow = entry.second.front()->Window == window;
        for (const std::shared_ptr<Binding>& each : entry.second) {
            each->IsBound = !isOfWindow;
        }
        return isOfWindow;
    });
}

void EventBindings::Clear() {
    for (const auto& entry : bindings) {
        for (const std::shared_ptr<Binding>& each : entry.second) {
            each->IsBound = false;
        }
    }
    bindings.clear();
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
        const Bindings present = bound->second;
        for (const std::shared_ptr<Binding>& each : present) {
            if (each->IsBound) {
                each->Callback();
            }
        }
    }
}

}  // namespace rotavel
