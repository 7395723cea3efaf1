#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QDialog>
#include <QStyle>

class QPushButton;
class QScrollArea;

namespace rotavel {

// A button of a message box.
struct MessageAnswer {
    QString Label;
    std::int64_t Value;
    bool IsEscape;  // also what Escape and the close box answer
};

// The modal box of a requester. A text longer than the screen scrolls; the buttons stay in reach.
class MessageBox final : public QDialog {
  public:
    // The first answer's button is the default one.
    MessageBox(const QString& title, const QString& text, QStyle::StandardPixmap icon,
               const std::vector<MessageAnswer>& answers);
    ~MessageBox() override;

    // Shows the box over a window, or on the screen for null, and waits for the answer.
    std::int64_t Ask(QWidget* over);

    // The box opened last of those that are open, or null.
    static MessageBox* Newest();

    // What Escape and the close box do.
    void reject() override;
    // However else the toolkit ends the box, it is without an answer.
    void done(int) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QPushButton* MakeButton(const MessageAnswer& choice);
    void Give(std::int64_t value);
    void FitScreen(const QWidget* over);

    friend void DismissMessageBoxes();

    QScrollArea* const message;
    std::optional<std::int64_t> escape;
    std::optional<std::int64_t> answer;
};

// Closes every open requester without an answer.
void DismissMessageBoxes();

}  // namespace rotavel
