#include "gui/combo_box_gadget.h"

#include <QIcon>
#include <QPixmap>
#include <QStandardItemModel>

#include "gui/gadgets/accessible_combo_box.h"
#include "gui/gadgets/combo_box_view.h"
#include "gui/gadgets/edit_combo_box.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/image.h"
#include "gui/toolkit/text.h"

namespace rotavel {

namespace {

constexpr int BlankImageSide = 16;

class Qz_NSPopUpButton final : public QzComboBoxView {
  public:
    explicit Qz_NSPopUpButton(QWidget* container) : QzComboBoxView(container) {
        NameByAccessibleName(*this);
    }

    // The plain form has no text of its own.
    void SetStringValue(const QString&) override {}
};

const QIcon& BlankImage() {
    static const QIcon blank = [] {
        QPixmap pixmap(BlankImageSide, BlankImageSide);
        pixmap.fill(Qt::transparent);
        return QIcon(pixmap);
    }();
    return blank;
}

class QzComboBoxGadgetFunctions final : public QzListFunctions {
  public:
    std::int64_t AddGadgetItem(std::int64_t position, std::u16string_view text, NativeImage* image,
                               std::uint32_t) override {
        QComboBox& view = View();
        const bool inserts = position >= 0 && position < view.count();
        const int index = inserts ? static_cast<int>(position) : view.count();
        const bool hadSelection = view.currentIndex() >= 0;
        view.insertItem(index, ItemImage(image), FoldedItem(text));
        if (!hadSelection) {
            view.setCurrentIndex(-1);  // the toolkit selects the first item of a list by itself
        }
        const auto& model = static_cast<const QStandardItemModel&>(*view.model());
        return reinterpret_cast<std::intptr_t>(model.item(index));
    }
    void RemoveGadgetItem(std::int64_t item) override {
        if (IsItem(item)) {
            const bool removesSelection = item == View().currentIndex();
            View().removeItem(static_cast<int>(item));
            if (removesSelection) {
                View().setCurrentIndex(-1);
            }
        }
    }
    void ClearGadgetItems() override { View().clear(); }
    std::int64_t CountGadgetItems() const override { return View().count(); }

    void SetGadgetState(std::int64_t state) override {
        if (state == -1 || IsItem(state)) {
            View().setCurrentIndex(static_cast<int>(state));
        }
    }
    std::int64_t GetGadgetState() const override { return View().currentIndex(); }

    void SetGadgetText(std::u16string_view text) override {
        const int index =
            View().findText(FoldedItem(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (index >= 0) {
            View().setCurrentIndex(index);
        }
    }

    void SetGadgetItemText(std::int64_t item, std::u16string_view text, std::int64_t) override {
        if (IsItem(item)) {
            View().setItemText(static_cast<int>(item), FoldedItem(text));
        }
    }
    std::u16string GetGadgetItemText(std::int64_t item, std::int64_t) override {
        return IsItem(item) ? FromQString(View().itemText(static_cast<int>(item)))
                            : std::u16string();
    }
    void SetGadgetItemData(std::int64_t item, std::int64_t value) override {
        if (IsItem(item)) {
            View().setItemData(static_cast<int>(item), QVariant::fromValue<qlonglong>(value));
        }
    }
    std::int64_t GetGadgetItemData(std::int64_t item) const override {
        return IsItem(item) ? View().itemData(static_cast<int>(item)).toLongLong() : 0;
    }
    void SetGadgetItemImage(std::int64_t item, NativeImage* image) override {
        if (HasImages() && IsItem(item)) {
            View().setItemIcon(static_cast<int>(item), ItemImage(image));
        }
    }

  private:
    QComboBox& View() const { return static_cast<Qz_NSPopUpButton&>(*Gadget->View); }
    bool IsItem(std::int64_t item) const { return item >= 0 && item < View().count(); }
    bool HasImages() const { return (Gadget->Flags & ComboBoxImages) != 0; }

    QIcon ItemImage(NativeImage* image) const {
        if (!HasImages()) {
            return {};
        }
        return image == nullptr ? BlankImage() : QIcon(QPixmap::fromImage(*FromHandle(image)));
    }
};

}  // namespace

std::int64_t ComboBoxGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                  std::int64_t width, std::int64_t height, std::uint32_t flags) {
    const NewGadget gadget = {number, ComboBoxKind, x, y, width, height, flags};
    if ((flags & ComboBoxEditable) != 0) {
        return EditComboBoxGadgetCreate(gadget);
    }
    return CreateGadget<QzComboBoxGadgetFunctions>(
        gadget, [](QWidget* container) { return new Qz_NSPopUpButton(container); },
        [](Qz_NSPopUpButton& view, QzComboBoxGadgetFunctions&) { view.NotifyOfChoices(); });
}

}  // namespace rotavel
