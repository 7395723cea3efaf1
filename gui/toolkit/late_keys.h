#pragma once

#include <QAbstractNativeEventFilter>

namespace rotavel {

// X sends a key to the window that has the keyboard just then. The toolkit drops it when that was a
// menu or a box that the program has closed meanwhile, as on a busy machine: while this exists, it
// goes to the window that gets the keys next. A part of the application object.
class LateKeys final : public QAbstractNativeEventFilter {
  public:
    LateKeys();

    bool nativeEventFilter(const QByteArray& kind, void* event, qintptr* result) override;
};

}  // namespace rotavel
