#include "gui/gadgets/edit_combo_box.h"

#include <algorithm>
#include <optional>
#include <vector>

#include <QAbstractListModel>

#include "gui/event_queue.h"
#include "gui/gadgets/combo_box_view.h"
#include "gui/gadgets/text_entry.h"
#include "gui/toolkit/text.h"
#include "gui/windows/window_focus.h"

namespace rotavel {

namespace {

// The items, as the native control asks for them. The selected index follows the last row asked
// for.
class DataSource final : public QAbstractListModel {
  public:
    int NumberOfItemsInComboBox() const { return static_cast<int>(Items.size()); }

    QString ObjectValueForItemAtIndex(std::int64_t index) const {
        if (!IsItem(index)) {
            return {};
        }
        SelectedIndex = static_cast<std::int32_t>(index);
        return Items[static_cast<std::size_t>(index)];
    }

    bool IsItem(std::int64_t index) const {
        return index >= 0 && index < static_cast<std::int64_t>(Items.size());
    }

    void Insert(std::int64_t index, const QString& text) {
        beginInsertRows({}, static_cast<int>(index), static_cast<int>(index));
        Items.insert(Items.begin() + index, text);
        Values.insert(Values.begin() + index, std::nullopt);
        endInsertRows();
    }

    void Remove(std::int64_t first, std::int64_t count) {
        if (count == 0) {
            return;
        }
        beginRemoveRows({}, static_cast<int>(first), static_cast<int>(first + count - 1));
        Items.erase(Items.begin() + first, Items.begin() + first + count);
        Values.erase(Values.begin() + first, Values.begin() + first + count);
        endRemoveRows();
    }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : NumberOfItemsInComboBox();
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::EditRole) {
            return {};
        }
        return ObjectValueForItemAtIndex(index.row());
    }

    std::vector<QString> Items;
    std::vector<std::optional<std::int64_t>> Values;
    mutable std::int32_t SelectedIndex = -1;
};

class Qz_NSComboBox final : public QzComboBoxView, public FirstResponderView {
  public:
    explicit Qz_NSComboBox(QWidget* container)
        : QzComboBoxView(container), entry(new QzTextEntry(nullptr)) {
        setLineEdit(entry);
        setInsertPolicy(NoInsert);
        setCompleter(nullptr);
        setModel(&source);
        // At the end of editing the toolkit would look the text up, asking for every row.
        QObject::disconnect(entry, &QLineEdit::returnPressed, this, nullptr);
        QObject::disconnect(entry, &QLineEdit::editingFinished, this, nullptr);
        entry->NotifyOfEdits([this] { RunEventHandler(*this); });
    }

    DataSource& Source() { return source; }

    void SetStringValue(const QString& value) override { entry->ShowText(value); }

    // The field lies over the whole of the box.
    void TakeGadgetDrops(bool takes) override {
        QzComboBoxView::TakeGadgetDrops(takes);
        entry->setAcceptDrops(!takes);
    }

    void BecomeFirstResponder() override { SendEventOf(*this, Focus); }
    void TextDidEndEditing() override { SendEventOf(*this, LostFocus); }

  private:
    QzTextEntry* const entry;  // the box owns it
    DataSource source;
};

// Keeps field and selection as they are while the list changes: the toolkit would select a
// row by itself and take its text into the field.
class ListChange {
  public:
    explicit ListChange(Qz_NSComboBox& changed)
        : view(changed),
          text(changed.currentText()),
          row(changed.currentIndex()),
          selectedIndex(changed.Source().SelectedIndex) {}
    ListChange(const ListChange&) = delete;
    ListChange& operator=(const ListChange&) = delete;
    ~ListChange() {
        if (row < 0) {
            view.setCurrentIndex(-1);
        }
        if (view.currentText() != text) {
            view.SetStringValue(text);
        }
        view.Source().SelectedIndex = selectedIndex;
    }

    void DeselectRow() { row = -1; }

  private:
    Qz_NSComboBox& view;
    QString text;
    int row;
    std::int32_t selectedIndex;
};

class QzEditComboBoxGadgetFunctions final : public QzListFunctions {
  public:
    std::int64_t AddGadgetItem(std::int64_t position, std::u16string_view text, NativeImage*,
                               std::uint32_t) override {
        const ListChange change(View());
        DataSource& source = View().Source();
        source.Insert(source.IsItem(position) ? position : source.NumberOfItemsInComboBox(),
                      FoldedItem(text));
        return 1;
    }
    void RemoveGadgetItem(std::int64_t item) override {
        if (View().Source().IsItem(item)) {
            RemoveItems(item, 1);
        }
    }
    void ClearGadgetItems() override { RemoveItems(0, CountGadgetItems()); }
    std::int64_t CountGadgetItems() const override {
        return View().Source().NumberOfItemsInComboBox();
    }

    void SetGadgetState(std::int64_t state) override {
        if (state != -1 && !View().Source().IsItem(state)) {
            return;
        }
        View().setCurrentIndex(static_cast<int>(state));
        View().SetStringValue(View().Source().ObjectValueForItemAtIndex(state));
        View().Source().SelectedIndex = static_cast<std::int32_t>(state);
    }
    std::int64_t GetGadgetState() const override { return View().Source().SelectedIndex; }

    void SetGadgetText(std::u16string_view text) override {
        const QString folded = FoldedItem(text);
        const auto& items = View().Source().Items;
        const auto found = std::find(items.begin(), items.end(), folded);
        if (found == items.end()) {
            const std::int32_t kept = View().Source().SelectedIndex;
            View().setCurrentIndex(-1);
            View().Source().SelectedIndex = kept;
        } else {
            const std::int64_t index = found - items.begin();
            View().setCurrentIndex(static_cast<int>(index));
            View().Source().ObjectValueForItemAtIndex(index);
        }
        View().SetStringValue(folded);
    }

    void SetGadgetItemText(std::int64_t item, std::u16string_view text, std::int64_t) override {
        if (View().Source().IsItem(item)) {
            View().Source().Items[static_cast<std::size_t>(item)] = FoldedItem(text);
        }
    }
    std::u16string GetGadgetItemText(std::int64_t item, std::int64_t) override {
        const DataSource& source = View().Source();
        return source.IsItem(item) ? FromQString(source.Items[static_cast<std::size_t>(item)])
                                   : std::u16string();
    }
    void SetGadgetItemData(std::int64_t item, std::int64_t value) override {
        if (View().Source().IsItem(item)) {
            View().Source().Values[static_cast<std::size_t>(item)] =
                value == 0 ? std::nullopt : std::optional(value);
        }
    }
    std::int64_t GetGadgetItemData(std::int64_t item) const override {
        const DataSource& source = View().Source();
        return source.IsItem(item) ? source.Values[static_cast<std::size_t>(item)].value_or(0) : 0;
    }

  private:
    Qz_NSComboBox& View() const { return static_cast<Qz_NSComboBox&>(*Gadget->View); }

    void RemoveItems(std::int64_t first, std::int64_t count) {
        ListChange change(View());
        const std::int64_t row = View().currentIndex();
        if (row >= first && row < first + count) {
            change.DeselectRow();
        }
        View().Source().Remove(first, count);
    }
};

}  // namespace

std::int64_t EditComboBoxGadgetCreate(const NewGadget& gadget) {
    return CreateGadget<QzEditComboBoxGadgetFunctions>(
        gadget, [](QWidget* container) { return new Qz_NSComboBox(container); },
        [](Qz_NSComboBox& view, QzEditComboBoxGadgetFunctions&) { view.NotifyOfChoices(); });
}

}  // namespace rotavel
