#pragma once

#include <functional>
#include <memory>

#include <QLineEdit>

#include "gui/gadgets/formatters.h"

namespace rotavel {

// Whether a key is a command (Alt and a letter opens a menu) and not a letter to type, though the
// toolkit gives a text with it. AltGr types.
bool IsCommandKey(const QKeyEvent& key);

// The line of text in string fields and editable combo boxes. However the user edits it (keys,
// paste, drop, input method, undo), the formatter judges the whole proposed text, and what it wants
// in the text's place is put there as a part of that edit: undo goes back to what was shown before.
class QzTextEntry : public QLineEdit {
  public:
    // The function is called once for each edit of the user's that stands.
    QzTextEntry(QWidget* parent, std::function<void()> controlTextDidChange);

    void SetFormatter(std::unique_ptr<QzMaximumLengthFormatter> newFormatter);
    QzMaximumLengthFormatter& Formatter() const { return *formatter; }

    // Shows a text of the program's, which is neither judged nor replaced and is no edit.
    void ShowText(const QString& shown);

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // Narrows the letters where the text is wider than the field.
    void FitText();
    void TextDidChange();
    // A replaced edit is two steps to the toolkit. Undo and redo go on from the one between them,
    // the proposed text, which was never shown.
    bool IsProposal() const;
    void SkipProposals();
    void Replace(const QString& replacement);

    std::unique_ptr<QzMaximumLengthFormatter> formatter;
    const std::function<void()> ControlTextDidChange;
    QString judged;  // the text before the edit at hand
    bool isUndoing = false;
};

}  // namespace rotavel
