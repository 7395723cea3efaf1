#include "gui/menus/message_box.h"

#include <algorithm>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWindow>

#include "gui/toolkit/native_events.h"
#include "gui/windows/window_frame.h"

namespace rotavel {

namespace {

constexpr std::int64_t NoAnswer = 0;
constexpr int WrapWidthInLetters = 60;  // lines longer than that are hard to read

// The open boxes, the newest last: a timer may open one over another.
std::vector<MessageBox*> openBoxes;

int WrapWidthOf(const QLabel& label) {
    return WrapWidthInLetters * label.fontMetrics().averageCharWidth();
}

QLabel* MakeLabel(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setText(text);
    label->setWordWrap(label->sizeHint().width() > WrapWidthOf(*label));
    return label;
}

// Title and text under each other, at the size that shows them whole.
QWidget* MakeMessage(const QString& title, const QString& text) {
    auto* const message = new QWidget;
    QLabel* const titleLabel = MakeLabel(title, message);
    QFont bold = titleLabel->font();
    bold.setBold(true);
    titleLabel->setFont(bold);
    QLabel* const textLabel = MakeLabel(text, message);
    auto* const column = new QVBoxLayout(message);
    column->setContentsMargins({});
    column->addWidget(titleLabel);
    column->addWidget(textLabel);
    column->addStretch();
    int width = 0;
    for (const QLabel* const label : {titleLabel, textLabel}) {
        // A word wider than the line is not broken.
        width = std::max({width, label->minimumSizeHint().width(),
                          label->wordWrap() ? WrapWidthOf(*label) : label->sizeHint().width()});
    }
    message->resize(width, column->hasHeightForWidth() ? column->totalHeightForWidth(width)
                                                       : column->totalSizeHint().height());
    return message;
}

}  // namespace

MessageBox::MessageBox(const QString& title, const QString& text, QStyle::StandardPixmap icon,
                       const std::vector<MessageAnswer>& answers)
    : message(new QScrollArea(this)) {
    setWindowModality(Qt::ApplicationModal);
    message->setFrameShape(QFrame::NoFrame);
    message->setFocusPolicy(Qt::NoFocus);
    message->setWidget(MakeMessage(title, text));
    auto* const picture = new QLabel(this);
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    picture->setPixmap(
        style()->standardIcon(icon, nullptr, this).pixmap(QSize(side, side), devicePixelRatio()));
    auto* const upper = new QHBoxLayout;
    upper->addWidget(picture, 0, Qt::AlignTop);
    upper->addSpacing(picture->sizeHint().width() / 4);
    upper->addWidget(message, 1);
    auto* const lower = new QHBoxLayout;
    lower->addStretch();
    for (const MessageAnswer& choice : answers) {
        lower->addWidget(MakeButton(choice));
    }
    findChild<QPushButton*>()->setFocus();  // the first, which so is the default one
    auto* const whole = new QVBoxLayout(this);
    whole->addLayout(upper, 1);
    whole->addLayout(lower);
    // A box that has to be answered has no close box.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   (escape ? Qt::WindowCloseButtonHint : Qt::WindowFlags()));
    openBoxes.push_back(this);
}

MessageBox::~MessageBox() {
    std::erase(openBoxes, this);
}

MessageBox* MessageBox::Newest() {
    return openBoxes.empty() ? nullptr : openBoxes.back();
}

QPushButton* MessageBox::MakeButton(const MessageAnswer& choice) {
    auto* const button = new QPushButton(choice.Label, this);
    connect(button, &QPushButton::clicked, this, [this, value = choice.Value] { Give(value); });
    if (choice.IsEscape) {
        escape = choice.Value;
    }
    return button;
}

void MessageBox::Give(std::int64_t value) {
    answer = value;
    hide();
}

void MessageBox::reject() {
    if (escape) {
        Give(*escape);
    }
}

void MessageBox::done(int) {
    Give(NoAnswer);
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
    // The buttons have the focus; the keys that scroll are nothing to them.
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
        QCoreApplication::sendEvent(message->verticalScrollBar(), event);
    } else {
        QDialog::keyPressEvent(event);
    }
}

void MessageBox::FitScreen(const QWidget* over) {
    if (over != nullptr) {
        setScreen(over->screen());
        RememberFrame(*over);  // the box gets one of that kind
    }
    // What the layout gives the scroll area, which asks for no more than a part of it.
    message->setMinimumSize(message->widget()->size());
    QSize size = layout()->totalSizeHint();
    message->setMinimumSize(1, 1);
    const QSize most = RoomFor(*this);
    const bool isTooHigh = size.height() > most.height();
    const bool isTooWide = size.width() > most.width();
    size.rwidth() += isTooHigh ? message->verticalScrollBar()->sizeHint().width() : 0;
    size.rheight() += isTooWide ? message->horizontalScrollBar()->sizeHint().height() : 0;
    setFixedSize(size.boundedTo(most));
    if (over != nullptr) {
        CentreFrameOver(*this, *over);
    } else {
        CentreFrameOnScreen(*this);
    }
    MoveFrameOntoScreen(*this);
}

std::int64_t MessageBox::Ask(QWidget* over) {
    FitScreen(over);
    winId();  // makes the native window that is to be tied to the other
    windowHandle()->setTransientParent(over == nullptr ? nullptr : over->windowHandle());
    show();
    while (!answer) {
        ProcessNativeEvents(QDeadlineTimer(QDeadlineTimer::Forever));
    }
    return *answer;
}

void DismissMessageBoxes() {
    const auto present = openBoxes;
    for (MessageBox* const box : present) {
        box->Give(NoAnswer);
    }
}

}  // namespace rotavel
