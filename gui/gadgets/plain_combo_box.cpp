#include <QAbstractItemView>
#include <QAccessibleWidget>

#include "gui/gadgets/combo_box_forms.h"

namespace rotavel {

namespace {

QAccessibleInterface* MakeAccessible(const QString&, QObject* object);

class Qz_NSPopUpButton final : public QzComboBoxView {
  public:
    explicit Qz_NSPopUpButton(QWidget* container) : QzComboBoxView(container) {
        QAccessible::installFactory(&MakeAccessible);
    }
};

// Has a screen reader call the plain form by its accessible name; the toolkit gives the text of the
// selected item there, and the name only by way of a label.
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

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* const box = dynamic_cast<Qz_NSPopUpButton*>(object);
    return box == nullptr ? nullptr : new AccessibleComboBox(box);
}

}  // namespace

std::int64_t PlainComboBoxGadgetCreate(const NewGadget& gadget) {
    return CreateGadget<Qz_NSPopUpButton, QzComboBoxGadgetFunctions>(gadget);
}

}  // namespace rotavel
