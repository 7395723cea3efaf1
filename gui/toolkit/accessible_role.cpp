#include "gui/toolkit/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace rotavel {

namespace {

constexpr const char* RoleProperty = "accessibleRole";

// Serves the views that have a role of ours; the toolkit serves the rest itself.
QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* const view = qobject_cast<QWidget*>(object);
    const QVariant role = view == nullptr ? QVariant() : view->property(RoleProperty);
    return role.isValid()
               ? new QAccessibleWidget(view, static_cast<QAccessible::Role>(role.toInt()))
               : nullptr;
}

}  // namespace

void SetAccessibleRole(QWidget& view, QAccessible::Role role) {
    QAccessible::installFactory(&MakeInterface);  // which the toolkit keeps once
    view.setProperty(RoleProperty, static_cast<int>(role));
}

}  // namespace rotavel
