#include "gui/gadgets/text_entry.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyleOptionFrame>

#include "gui/toolkit/narrow_font.h"

namespace rotavel {

namespace {

// The modifiers that make a letter a command.
#if defined(Q_OS_MACOS)
constexpr auto CommandModifiers = Qt::ControlModifier | Qt::MetaModifier;  // Alt types there
#else
constexpr auto CommandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
#endif

// What the toolkit keeps free at each end of a line, inside of the frame.
constexpr int InnerMargin = 2;

}  // namespace

bool IsCommandKey(const QKeyEvent& key) {
    const QString text = key.text();
    const bool hasLetter =
        !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate());
    return hasLetter && (key.modifiers() & Qt::GroupSwitchModifier) == 0 &&
           (key.modifiers() & CommandModifiers) != 0;
}

QzTextEntry::QzTextEntry(QWidget* parent, std::function<void()> controlTextDidChange)
    : QLineEdit(parent), ControlTextDidChange(std::move(controlTextDidChange)) {
    // The toolkit's limit would cut the program's own texts; the formatter knows the real one.
    setMaxLength(std::numeric_limits<int>::max());
    setDragEnabled(true);
    SetFormatter(std::make_unique<QzMaximumLengthFormatter>());
    QObject::connect(this, &QLineEdit::textEdited, this, [this] { TextDidChange(); });
    QObject::connect(this, &QLineEdit::textChanged, this, [this] { FitText(); });
}

void QzTextEntry::SetFormatter(std::unique_ptr<QzMaximumLengthFormatter> newFormatter) {
    setValidator(newFormatter.get());
    formatter = std::move(newFormatter);
}

void QzTextEntry::ShowText(const QString& shown) {
    // Without its validator the toolkit takes the next edit for one of a valid text, which it
    // undoes when the formatter refuses it.
    setValidator(nullptr);
    setText(shown);
    setCursorPosition(0);
    setValidator(formatter.get());
    judged = text();
}

bool QzTextEntry::event(QEvent* event) {
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (!isKey || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        return QLineEdit::event(event);
    }
    // The undo key acts as everywhere in the program: the field undoes its last edit and the key
    // goes on to a menu item that has it as its shortcut. The toolkit asks first whether the field
    // wants such a key, and then presents the key itself, which has done its work by then.
    if (event->type() == QEvent::ShortcutOverride) {
        event->ignore();
        if (!isReadOnly() && echoMode() == Normal) {
            isUndoing = true;
            undo();
            isUndoing = false;
        }
    }
    return true;
}

void QzTextEntry::keyPressEvent(QKeyEvent* event) {
    // What cannot be copied would be lost.
    if (echoMode() != Normal && event->matches(QKeySequence::Cut)) {
        return;
    }
    if (!IsCommandKey(*event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    // Without its text it edits nothing; what no field serves is left to the window.
    QKeyEvent command(event->type(), event->key(), event->modifiers());
    QLineEdit::keyPressEvent(&command);
    event->setAccepted(command.isAccepted());
}

void QzTextEntry::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    // To the toolkit a number ends at its decimal point. What has no blank in it is one word here.
    if (event->button() == Qt::LeftButton && !text().trimmed().contains(' ')) {
        selectAll();
    }
}

void QzTextEntry::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        FitText();
    }
}

void QzTextEntry::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    FitText();
}

void QzTextEntry::FitText() {
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    const QRect inside = style()->subElementRect(QStyle::SE_LineEditContents, &frame, this);
    QFont full = font();
    full.setStretch(QFont::AnyStretch);
    full.setResolveMask(full.resolveMask() & ~static_cast<uint>(QFont::StretchResolved));
    const QFont fitting =
        NarrowFont(full, inside.width() - 2 * InnerMargin, [this](const QFont& tried) {
            return QFontMetricsF(tried, this).horizontalAdvance(displayText());
        });
    if (fitting.stretch() != font().stretch()) {
        setFont(fitting);
    }
}

void QzTextEntry::TextDidChange() {
    SkipProposals();
    // The toolkit does not judge what undo and redo bring back.
    if (!hasAcceptableInput()) {
        const int cursor = cursorPosition();
        ShowText(judged);
        setCursorPosition(cursor);
        return;
    }
    if (!isRedoAvailable()) {  // after an undo the text is as it was shown before
        Replace(formatter->Replacement(text()));
    }
    judged = text();
    ControlTextDidChange();
}

bool QzTextEntry::IsProposal() const {
    return isUndoAvailable() && isRedoAvailable() && formatter->Replacement(text()) != text();
}

void QzTextEntry::SkipProposals() {
    if (!IsProposal()) {
        return;
    }
    const QSignalBlocker silence(this);
    setValidator(nullptr);
    while (IsProposal()) {
        undo();
    }
    if (!isUndoing && text() == judged) {  // it is a redo that came from here
        do {
            redo();
        } while (IsProposal());
    }
    setValidator(formatter.get());
}

void QzTextEntry::Replace(const QString& replacement) {
    const QString typed = text();
    if (replacement == typed) {
        return;
    }
    const auto shorter = std::min(typed.size(), replacement.size());
    const auto start =
        std::mismatch(typed.begin(), typed.begin() + shorter, replacement.begin()).first -
        typed.begin();
    const auto end =
        std::mismatch(typed.rbegin(), typed.rbegin() + (shorter - start), replacement.rbegin())
            .first -
        typed.rbegin();
    const auto cursor = formatter->Folded(typed.left(cursorPosition())).size();
    const QSignalBlocker silence(this);
    setValidator(nullptr);  // what a formatter wants itself it does not judge
    setSelection(static_cast<int>(start), static_cast<int>(typed.size() - start - end));
    insert(replacement.mid(start, replacement.size() - start - end));
    setCursorPosition(static_cast<int>(std::min(cursor, replacement.size())));
    setValidator(formatter.get());
}

}  // namespace rotavel
