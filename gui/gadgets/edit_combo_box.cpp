#include "gui/gadgets/edit_combo_box.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

#include <QAbstractListModel>
#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>

#include "gui/combo_box_gadget.h"
#include "gui/event_queue.h"
#include "gui/gadgets/formatters.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/gadgets/undo_key.h"
#include "gui/toolkit/text.h"
#include "gui/windows/first_responder.h"

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

class Qz_NSComboBox final : public QzGadgetView<QComboBox>,
                            public QzControl,
                            public FirstResponderView {
  public:
    explicit Qz_NSComboBox(QWidget* container) : QzGadgetView(container) {
        setEditable(true);
        setInsertPolicy(NoInsert);
        setCompleter(nullptr);
        PrepareComboBox(*this);
        setModel(&source);
        // At the end of editing the toolkit would look the text up, asking for every row.
        QObject::disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
        QObject::disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
        lineEdit()->setValidator(&formatter);
        lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    }

    DataSource& Source() { return source; }

    void SetStringValue(const QString& value) override {
        // The program's own text is not judged.
        lineEdit()->setValidator(nullptr);
        setEditText(value);
        lineEdit()->setValidator(&formatter);
    }
    QString StringValue() const override { return currentText(); }

    void BecomeFirstResponder() override { SendEventFor(Tag(), Focus); }
    void TextDidEndEditing() override { SendEventFor(Tag(), LostFocus); }

  protected:
    bool event(QEvent* event) override {
        return (lineEdit() != nullptr && UndoKey::Takes(*lineEdit(), event)) ||
               QzGadgetView::event(event);
    }
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

  private:
    DataSource source;
    QzMaximumLengthFormatter formatter;  // keeps what is typed and pasted on one line
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

class QzEditComboBoxGadgetFunctions final : public QzGadgetFunctions {
  public:
    void EventHandler() override { SendEvent(Change); }

    std::int64_t AddGadgetItem(std::int64_t position, std::u16string_view text, NativeImage*,
                               std::uint32_t) override {
        const ListChange change(View());
        DataSource& source = View().Source();
        source.Insert(source.IsItem(position) ? position : source.NumberOfItemsInComboBox(),
                      FoldedItem(text, Gadget->Flags));
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
        const QString folded = FoldedItem(text, Gadget->Flags);
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
            View().Source().Items[static_cast<std::size_t>(item)] = FoldedItem(text, Gadget->Flags);
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

void PrepareComboBox(QComboBox& box) {
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box.setFocusPolicy(Qt::StrongFocus);
}

QString FoldedItem(std::u16string_view text, std::uint32_t flags) {
    const bool isUpper = (flags & ComboBoxUpperCase) != 0;
    return Folded(ToQString(text), (flags & ComboBoxLowerCase) != 0 ? LetterCase::Lower
                                   : isUpper                        ? LetterCase::Upper
                                                                    : LetterCase::AsItIs);
}

std::int64_t EditComboBoxGadgetCreate(GadgetNumber number, const GadgetBounds& bounds,
                                      std::uint32_t flags) {
    QWidget* const container = ContainerForNewGadget(number);
    if (container == nullptr) {
        return 0;
    }
    auto* const view = new Qz_NSComboBox(container);
    const std::int64_t result = PlaceGadget(std::make_unique<QzEditComboBoxGadgetFunctions>(),
                                            number, ComboBoxKind, view, bounds, flags);
    const auto changed = [view] { RunEventHandler(*view); };
    QObject::connect(view->lineEdit(), &QLineEdit::textEdited, view, changed);
    QObject::connect(view, &QComboBox::activated, view, changed);
    return result;
}

}  // namespace rotavel
