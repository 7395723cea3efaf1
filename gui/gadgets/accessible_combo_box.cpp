#include "gui/gadgets/accessible_combo_box.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

namespace rotavel {

namespace {

constexpr const char* NamedProperty = "isNamedByAccessibleName";

class AccessibleComboBox final : public QAccessibleWidget {
  public:
    explicit AccessibleComboBox(QComboBox* shown)
        : QAccessibleWidget(shown, QAccessible::ComboBox), box(shown) {}

    // The list of items is the only child, as of the toolkit's own.
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(box->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == box->view() ? 0 : -1;
    }
    QString text(QAccessible::Text part) const override {
        if (part == QAccessible::Value ||
            (part == QAccessible::Name && box->accessibleName().isEmpty())) {
            return box->currentText();
        }
        return QAccessibleWidget::text(part);
    }
    QAccessible::State state() const override {
        QAccessible::State now = QAccessibleWidget::state();
        now.expandable = true;
        now.expanded = box->view()->isVisible();
        return now;
    }
    QStringList actionNames() const override {
        return {showMenuAction(), pressAction(), setFocusAction()};
    }
    void doAction(const QString& name) override {
        if (name == setFocusAction()) {
            QAccessibleWidget::doAction(name);
        } else if (box->view()->isVisible()) {
            box->hidePopup();
        } else {
            box->showPopup();
        }
    }

  private:
    QComboBox* const box;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* const box = qobject_cast<QComboBox*>(object);
    return box != nullptr && box->property(NamedProperty).isValid() ? new AccessibleComboBox(box)
                                                                    : nullptr;
}

}  // namespace

void NameByAccessibleName(QComboBox& box) {
    static const bool isInstalled = [] {
        QAccessible::installFactory(&MakeInterface);
        return true;
    }();
    static_cast<void>(isInstalled);
    box.setProperty(NamedProperty, true);
}

}  // namespace rotavel
