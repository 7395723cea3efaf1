#include "gui/event_queue.h"
#include "gui/gadgets/combo_box_forms.h"
#include "gui/gadgets/text_entry.h"
#include "gui/toolkit/text.h"
#include "gui/windows/window_focus.h"

namespace rotavel {

namespace {

// The items, as the native control asks for them. The selected index follows the last row asked
// for.
class DataSource final : public QStandardItemModel {
  public:
    QVariant data(const QModelIndex& index, int role) const override {
        if (index.isValid() && (role == Qt::DisplayRole || role == Qt::EditRole)) {
            SelectedIndex = index.row();
        }
        return QStandardItemModel::data(index, role);
    }
    // The list asks for several roles at a time.
    void multiData(const QModelIndex& index, QModelRoleDataSpan roles) const override {
        for (QModelRoleData& each : roles) {
            each.setData(data(index, each.role()));
        }
    }

    mutable std::int32_t SelectedIndex = -1;
};

class Qz_NSComboBox final : public QzComboBoxView, public FirstResponderView {
  public:
    explicit Qz_NSComboBox(QWidget* container)
        : QzComboBoxView(container),
          entry(new QzTextEntry(nullptr, [this] { RunEventHandler(); })) {
        setLineEdit(entry);
        setInsertPolicy(NoInsert);
        setCompleter(nullptr);
        setModel(&Items);
        // At the end of editing the toolkit would look the text up, asking for every row, and it
        // would take the new text of an item into the field.
        disconnect(entry, &QLineEdit::returnPressed, this, nullptr);
        disconnect(entry, &QLineEdit::editingFinished, this, nullptr);
        disconnect(&Items, &QAbstractItemModel::dataChanged, this, nullptr);
    }

    void SetStringValue(const QString& value) override { entry->ShowText(value); }

    void BecomeFirstResponder() override { SendEvent(Focus); }
    void TextDidEndEditing() override { SendEvent(LostFocus); }

    DataSource Items;

  private:
    QzTextEntry* const entry;  // the box owns it
};

class QzEditComboBoxGadgetFunctions final : public QzComboBoxGadgetFunctions {
  public:
    void SetGadgetState(std::int64_t state) override {
        if (state == -1 || Item(state) != nullptr) {
            Select(static_cast<int>(state), ToQString(GetGadgetItemText(state, 0)));
            View().Items.SelectedIndex = static_cast<std::int32_t>(state);
        }
    }
    std::int64_t GetGadgetState() const override { return View().Items.SelectedIndex; }

    void SetGadgetText(std::u16string_view text) override {
        const QString folded = FoldedItem(text);
        const int found = FindItem(folded);
        const std::int32_t before = View().Items.SelectedIndex;
        Select(found, folded);
        View().Items.SelectedIndex = found >= 0 ? found : before;
    }

  private:
    Qz_NSComboBox& View() const { return static_cast<Qz_NSComboBox&>(*Gadget->View); }

    void Select(int row, const QString& text) {
        View().setCurrentIndex(row);
        View().SetStringValue(text);
    }
    // Nor does what the toolkit asks for and takes into the field meanwhile count.
    void ChangeList(const std::function<void()>& change) override {
        const QString text = View().currentText();
        const int cursor = View().lineEdit()->cursorPosition();
        const std::int32_t index = View().Items.SelectedIndex;
        QzComboBoxGadgetFunctions::ChangeList(change);
        if (View().currentText() != text) {
            View().SetStringValue(text);
            View().lineEdit()->setCursorPosition(cursor);
        }
        View().Items.SelectedIndex = index;
    }
};

}  // namespace

std::int64_t EditComboBoxGadgetCreate(const NewGadget& gadget) {
    return CreateGadget<Qz_NSComboBox, QzEditComboBoxGadgetFunctions>(gadget);
}

}  // namespace rotavel
