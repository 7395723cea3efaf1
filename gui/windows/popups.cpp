#include "gui/windows/popups.h"

#include <QApplication>
#include <QWidget>

namespace rotavel {

namespace {

bool StemsFrom(const QWidget* widget, const QWidget* ancestor) {
    while (widget != nullptr && widget != ancestor) {
        widget = widget->parentWidget();
    }
    return widget != nullptr;
}

}  // namespace

void ClosePopupsOf(const QWidget& widget) {
    const QWidget* closed = nullptr;
    QWidget* open = QApplication::activePopupWidget();
    while (open != nullptr && open != closed && StemsFrom(open, &widget)) {
        closed = open;
        open->close();
        open = QApplication::activePopupWidget();
    }
}

}  // namespace rotavel
