#include "gui/combo_box_gadget.h"

#include <QKeyEvent>
#include <QPixmap>

#include "gui/event_queue.h"
#include "gui/gadgets/combo_box_forms.h"
#include "gui/gadgets/text_entry.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/text.h"

namespace rotavel {

namespace {

constexpr int BlankImageSide = 16;

const QIcon& BlankImage() {
    static const QIcon blank = [] {
        QPixmap pixmap(BlankImageSide, BlankImageSide);
        pixmap.fill(Qt::transparent);
        return QIcon(pixmap);
    }();
    return blank;
}

}  // namespace

QzComboBoxView::QzComboBoxView(QWidget* container) : QComboBox(container) {
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::activated, this, [this] { RunEventHandler(); });
}

void QzComboBoxView::keyPressEvent(QKeyEvent* event) {
    if (!isEditable() && IsCommandKey(*event)) {
        event->ignore();  // the toolkit would look for an item that begins so
    } else {
        QComboBox::keyPressEvent(event);
    }
}

void QzComboBoxGadgetFunctions::EventHandler() {
    SendEvent(Change);
}

std::int64_t QzComboBoxGadgetFunctions::AddGadgetItem(std::int64_t position,
                                                      std::u16string_view text, NativeImage* image,
                                                      std::uint32_t) {
    QComboBox& view = View();
    const int index = Item(position) != nullptr ? static_cast<int>(position) : view.count();
    ChangeList([&] { view.insertItem(index, ItemImage(image), FoldedItem(text)); });
    return view.isEditable() ? 1 : reinterpret_cast<std::intptr_t>(Item(index));
}

void QzComboBoxGadgetFunctions::RemoveGadgetItem(std::int64_t item) {
    if (Item(item) != nullptr) {
        ChangeList([&] { View().removeItem(static_cast<int>(item)); });
    }
}

void QzComboBoxGadgetFunctions::ClearGadgetItems() {
    ChangeList([&] { View().clear(); });
}

void QzComboBoxGadgetFunctions::SetGadgetState(std::int64_t state) {
    if (state == -1 || Item(state) != nullptr) {
        View().setCurrentIndex(static_cast<int>(state));
    }
}

void QzComboBoxGadgetFunctions::SetGadgetText(std::u16string_view text) {
    const int found = FindItem(FoldedItem(text));
    if (found >= 0) {
        View().setCurrentIndex(found);
    }
}

void QzComboBoxGadgetFunctions::SetGadgetItemText(std::int64_t item, std::u16string_view text,
                                                  std::int64_t) {
    if (QStandardItem* const changed = Item(item)) {
        changed->setText(FoldedItem(text));
    }
}

std::u16string QzComboBoxGadgetFunctions::GetGadgetItemText(std::int64_t item, std::int64_t) {
    const QStandardItem* const asked = Item(item);
    return asked == nullptr ? std::u16string() : FromQString(asked->text());
}

void QzComboBoxGadgetFunctions::SetGadgetItemData(std::int64_t item, std::int64_t value) {
    if (QStandardItem* const changed = Item(item)) {
        changed->setData(QVariant::fromValue<qlonglong>(value));
    }
}

std::int64_t QzComboBoxGadgetFunctions::GetGadgetItemData(std::int64_t item) const {
    const QStandardItem* const asked = Item(item);
    return asked == nullptr ? 0 : asked->data().toLongLong();
}

void QzComboBoxGadgetFunctions::SetGadgetItemImage(std::int64_t item, NativeImage* image) {
    QStandardItem* const changed = Item(item);
    if (changed != nullptr && HasImages()) {
        changed->setIcon(ItemImage(image));
    }
}

void QzComboBoxGadgetFunctions::ChangeList(const std::function<void()>& change) {
    const QPersistentModelIndex selected = View().model()->index(View().currentIndex(), 0);
    change();
    if (!selected.isValid() && View().currentIndex() != -1) {
        View().setCurrentIndex(-1);
    }
}

QString QzComboBoxGadgetFunctions::FoldedItem(std::u16string_view text) const {
    const bool isUpper = (Gadget->Flags & ComboBoxUpperCase) != 0;
    return Folded(ToQString(text), (Gadget->Flags & ComboBoxLowerCase) != 0 ? LetterCase::Lower
                                   : isUpper                                ? LetterCase::Upper
                                                                            : LetterCase::AsItIs);
}

int QzComboBoxGadgetFunctions::FindItem(const QString& text) const {
    const int count = View().count();
    int index = 0;
    while (index < count && Item(index)->text() != text) {
        ++index;
    }
    return index < count ? index : -1;
}

QStandardItem* QzComboBoxGadgetFunctions::Item(std::int64_t item) const {
    const auto& items = static_cast<const QStandardItemModel&>(*View().model());
    return item >= 0 && item < items.rowCount() ? items.item(static_cast<int>(item)) : nullptr;
}

bool QzComboBoxGadgetFunctions::HasImages() const {
    return !View().isEditable() && (Gadget->Flags & ComboBoxImages) != 0;
}

QIcon QzComboBoxGadgetFunctions::ItemImage(NativeImage* image) const {
    if (!HasImages()) {
        return {};
    }
    return image == nullptr ? BlankImage() : QIcon(QPixmap::fromImage(*FromHandle(image)));
}

std::int64_t ComboBoxGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                  std::int64_t width, std::int64_t height, std::uint32_t flags) {
    const NewGadget gadget = {number, ComboBoxKind, x, y, width, height, flags};
    return (flags & ComboBoxEditable) != 0 ? EditComboBoxGadgetCreate(gadget)
                                           : PlainComboBoxGadgetCreate(gadget);
}

}  // namespace rotavel
