#pragma once

#include <functional>
#include <string_view>

#include <QComboBox>
#include <QIcon>
#include <QStandardItemModel>
#include <QWheelEvent>

#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"

namespace rotavel {

// What the views of both forms of a combo box have in common: they keep the size they were given, a
// turn of the wheel over them neither chooses nor takes the keyboard, and a command key chooses no
// item. Each choice of the user's runs the event handler, also of the item that is selected
// already; in the editable form each edit does as well.
class QzComboBoxView : public QComboBox, public QzTaggedView, public QzControl {
  public:
    explicit QzComboBoxView(QWidget* container);

    QString StringValue() const override { return currentText(); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

// The plain form's operations; the editable form's differ in what is selected.
class QzComboBoxGadgetFunctions : public QzGadgetFunctions {
  public:
    void EventHandler() override;

    std::int64_t AddGadgetItem(std::int64_t position, std::u16string_view text, NativeImage* image,
                               std::uint32_t flags) override;
    void RemoveGadgetItem(std::int64_t item) override;
    void ClearGadgetItems() override;
    std::int64_t CountGadgetItems() const override { return View().count(); }

    void SetGadgetState(std::int64_t state) override;
    std::int64_t GetGadgetState() const override { return View().currentIndex(); }
    void SetGadgetText(std::u16string_view text) override;

    void SetGadgetItemText(std::int64_t item, std::u16string_view text, std::int64_t) override;
    std::u16string GetGadgetItemText(std::int64_t item, std::int64_t) override;
    void SetGadgetItemData(std::int64_t item, std::int64_t value) override;
    std::int64_t GetGadgetItemData(std::int64_t item) const override;
    void SetGadgetItemImage(std::int64_t item, NativeImage* image) override;

  protected:
    // Changes the list without what the toolkit would do by itself: select an item.
    virtual void ChangeList(const std::function<void()>& change);

    // A text as the flags of the gadget fold it.
    QString FoldedItem(std::u16string_view text) const;
    // The first item with exactly this text, -1 for none.
    int FindItem(const QString& text) const;
    // Null where there is none.
    QStandardItem* Item(std::int64_t item) const;

  private:
    QzComboBoxView& View() const { return static_cast<QzComboBoxView&>(*Gadget->View); }
    bool HasImages() const;
    QIcon ItemImage(NativeImage* image) const;
};

// Create a gadget of each form; the result is as for ComboBoxGadgetCreate.
std::int64_t PlainComboBoxGadgetCreate(const NewGadget& gadget);
std::int64_t EditComboBoxGadgetCreate(const NewGadget& gadget);

}  // namespace rotavel
