#include "gui/menus/shortcuts.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QStringList>

#include "gui/menu.h"
#include "gui/menus/menu_bars.h"
#include "gui/toolkit/text.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

#ifdef Q_OS_MACOS
constexpr Qt::KeyboardModifier ControlModifier = Qt::MetaModifier;
#else
constexpr Qt::KeyboardModifier ControlModifier = Qt::ControlModifier;
#endif
constexpr Qt::KeyboardModifier CommandModifier = Qt::ControlModifier;  // Command on macOS

// The key of F1 to F12, 0 for any other token.
int FunctionKey(const QString& token) {
    for (int key = Qt::Key_F1; key <= Qt::Key_F12; ++key) {
        if (token == QKeySequence(key).toString(QKeySequence::PortableText)) {
            return key;
        }
    }
    return 0;
}

}  // namespace

QKeySequence ParseShortcut(const QString& text) {
    Qt::KeyboardModifiers modifiers;
    int key = 0;
    for (const QString& token : text.toUpper().split('+')) {
        if (token == "CMD") {
            modifiers |= CommandModifier;
        } else if (token == "SHIFT") {
            modifiers |= Qt::ShiftModifier;
        } else if (token == "ALT") {
            modifiers |= Qt::AltModifier;
        } else if (token == "CTRL") {
            modifiers |= ControlModifier;
        } else if (const int functionKey = FunctionKey(token)) {
            key = functionKey;
        } else {
            key = token.size() == 1 ? token.front().unicode() : 0;
        }
    }
    return key == 0 ? QKeySequence() : QKeySequence(QKeyCombination(modifiers, Qt::Key(key)));
}

ItemText ParseItemText(QString text) {
    text.remove('&');
    const qsizetype tab = text.indexOf('\t');
    if (tab < 0) {
        return {text, {}};
    }
    return {text.left(tab), ParseShortcut(text.mid(tab + 1))};
}

void GiveUpKeys(QAction& action) {
    // Two commands with equal rights to their keys would be none to the toolkit.
    action.setShortcutContext(Qt::WidgetShortcut);
}

bool TakesMenuKey(const QObject* nativeWindow, const QKeyEvent& event) {
    if (QApplication::activePopupWidget() != nullptr) {
        return false;  // an open menu has the keys
    }
    QzWindow* const window = QzWindow::In(nativeWindow);
    if (window == nullptr || window->IsDisabled()) {
        return false;
    }
    if (auto* const own = dynamic_cast<QzMenuBar*>(window->Layout().MenuBar())) {
        return own->TakesKey(event);
    }
    return MenuBars::Shared().MainBarFor(*window).TakesApplicationKey(event);
}

void WindowAddShortcut(WindowNumber window, std::u16string_view keys, std::int64_t menuItem) {
    if (WindowRecord* const record = WindowRegistry().Find(window)) {
        record->Shortcuts.emplace_back(ParseShortcut(ToQString(keys)), menuItem);
    }
}

}  // namespace rotavel
