#include "gui/toolkit/late_keys.h"

#include <algorithm>
#include <cstdint>

#include <QGuiApplication>
#include <QWindow>

#include "gui/toolkit/kept_input.h"

namespace rotavel {

namespace {

// What an event of X begins with when a key goes down or up (X11 protocol, encoding of KeyPress).
struct KeyEvent {
    std::uint8_t Code;
    std::uint8_t Key;
    std::uint16_t Sequence;
    std::uint32_t Time;
    std::uint32_t Root;
    std::uint32_t Window;
};
constexpr unsigned KeyPress = 2;
constexpr unsigned KeyRelease = 3;
constexpr unsigned SentByAnotherProgram = 0x80;  // a bit beside the code

bool IsOpen(WId number) {
    const QWindowList windows = QGuiApplication::allWindows();
    return std::any_of(windows.begin(), windows.end(), [number](const QWindow* window) {
        return window->handle() != nullptr && window->winId() == number;
    });
}

void Redirect(KeyEvent& key) {
    const unsigned code = key.Code & ~SentByAnotherProgram;
    if ((code != KeyPress && code != KeyRelease) || IsOpen(key.Window)) {
        return;
    }
    if (const QWindow* const receiver = ReceiverOfKey(nullptr)) {
        key.Window = static_cast<std::uint32_t>(receiver->winId());
    }
}

}  // namespace

LateKeys::LateKeys() {
    qApp->installNativeEventFilter(this);
}

bool LateKeys::nativeEventFilter(const QByteArray& kind, void* event, qintptr* /*result*/) {
    if (kind == "xcb_generic_event_t") {
        Redirect(*static_cast<KeyEvent*>(event));
    }
    return false;  // the toolkit goes on with it
}

}  // namespace rotavel
