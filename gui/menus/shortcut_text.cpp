#include "gui/menus/shortcut_text.h"

#include <QStringList>

namespace rotavel {

namespace {

#ifdef Q_OS_MACOS
constexpr Qt::KeyboardModifier ControlModifier = Qt::MetaModifier;
#else
constexpr Qt::KeyboardModifier ControlModifier = Qt::ControlModifier;
#endif
constexpr Qt::KeyboardModifier CommandModifier = Qt::ControlModifier;  // Command on macOS

constexpr int LastFunctionKey = 12;

// The key of F1 to F12, 0 for any other token.
int FunctionKey(const QString& token) {
    if (!token.startsWith('F')) {
        return 0;
    }
    bool isNumber = false;
    const int number = token.mid(1).toInt(&isNumber);
    const bool isKey = isNumber && number >= 1 && number <= LastFunctionKey &&
                       token == "F" + QString::number(number);
    return isKey ? Qt::Key_F1 + number - 1 : 0;
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

}  // namespace rotavel
