#include "gui/status_bar.h"

#include <algorithm>
#include <vector>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include "gui/toolkit/accessible_role.h"
#include "gui/toolkit/coordinates.h"
#include "gui/toolkit/font.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/narrow_font.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/toolkit/text.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

constexpr int BarHeight = 24;
constexpr int FieldHeight = 20;
constexpr int TextIndent = 4;  // of a left or right text to its field's edge

// A field as wide as asked for, however long its text is.
class QzStatusField final : public QLabel {
  public:
    QzStatusField(QWidget* bar, std::int64_t fieldWidth)
        : QLabel(bar), size(ToSide(fieldWidth), FieldHeight) {
        const bool takesRest = fieldWidth == IgnoreValue;
        setSizePolicy(takesRest ? QSizePolicy::Ignored : QSizePolicy::Fixed, QSizePolicy::Fixed);
        setTextFormat(Qt::PlainText);
        setIndent(TextIndent);
        setAutoFillBackground(true);
        if (DefaultGadgetFont() != AnyNumber) {
            setFont(FontForGadgets(DefaultGadgetFont()));
        }
        show();
    }
    QSize sizeHint() const override { return size; }
    QSize minimumSizeHint() const override { return size; }

    // Of a number that is cut another number would be left: a text that is too long for its field,
    // however narrow its letters, covers what stands before it in the bar.
    void MakeRoom(const QRect& bar) {
        const auto widthIn = [this](const QFont& tried) {
            return QFontMetricsF(tried, this).horizontalAdvance(text());
        };
        const int right = std::min(geometry().right(), bar.right());
        int room = right + 1 - x();
        if (!text().isEmpty() && widthIn(NarrowFont(font(), room, widthIn)) > room) {
            room = static_cast<int>(widthIn(font())) + 2 * TextIndent;
        }
        room = std::min(room, right + 1 - bar.left());
        setGeometry(right + 1 - room, y(), room, height());
    }

  private:
    const QSize size;
};

class QzStatusRow final : public QHBoxLayout {
  public:
    using QHBoxLayout::QHBoxLayout;

    void setGeometry(const QRect& bar) override {
        QHBoxLayout::setGeometry(bar);
        for (int place = 0; place < count(); ++place) {
            if (auto* const field = static_cast<QzStatusField*>(itemAt(place)->widget())) {
                field->MakeRoom(bar);
            }
        }
    }
};

class QzStatusBarView final : public QWidget {
  public:
    explicit QzStatusBarView(QzWindow* owner);

    void AddField(std::int64_t width);
    std::size_t CountFields() const { return fields.size(); }
    QLabel& Field(std::size_t index) const { return *fields[index]; }
    QzWindow* Window() const { return window; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QzWindow* window;
    QHBoxLayout* row;
    std::vector<QLabel*> fields;
};

NumberedObjects<QzStatusBarView*> registry;
std::int64_t newestBar = AnyNumber;

QzStatusBarView::QzStatusBarView(QzWindow* owner)
    : QWidget(owner->ContentView()), window(owner), row(new QzStatusRow(this)) {
    constexpr int margin = (BarHeight - FieldHeight) / 2;
    row->setContentsMargins(0, margin, 0, margin);
    row->setSpacing(0);
    row->addStrut(FieldHeight);
    row->addStretch();  // behind the fields; takes nothing as long as a field stretches
    row->setSizeConstraint(QLayout::SetNoConstraint);
    setMinimumHeight(BarHeight);
    SetAccessibleRole(*this, QAccessible::StatusBar);
    setAutoFillBackground(true);  // scrolled content runs on under it
    show();
    owner->Layout().AddFooter(this);
}

void QzStatusBarView::AddField(std::int64_t width) {
    auto* const field = new QzStatusField(this, width);
    const int behindFields = row->count() - 1;
    row->insertWidget(behindFields, field, width == IgnoreValue ? 1 : 0);
    if (width < 0 && width != IgnoreValue) {
        // Has no room itself and takes some from the next.
        row->insertSpacing(behindFields + 1, ToCoordinate(width));
    }
    fields.push_back(field);
    window->Layout().Apply();
}

void QzStatusBarView::paintEvent(QPaintEvent*) {
    // A line would lie above the bar, and be cut off, on a screen of 1.25 or 1.5 times the density.
    QPainter(this).fillRect(0, 0, width(), 1, palette().color(QPalette::Mid));
}

QzStatusBarView* FindBar(std::int64_t number) {
    QzStatusBarView* const* const bar = registry.Find(number);
    return bar == nullptr ? nullptr : *bar;
}

void DestroyBar(std::int64_t number, QzStatusBarView* bar) {
    QzWindow* const window = bar->Window();
    registry.Remove(number);
    bar->hide();
    window->Layout().RemoveFooter(bar);
    Retire(bar);  // the window may be in the middle of painting it
    window->Layout().Apply();
}

}  // namespace

void DestroyStatusBarsOf(const QzWindow& window) {
    registry.ForEach([&window](std::int64_t number, QzStatusBarView* bar) {
        if (bar->Window() == &window) {
            DestroyBar(number, bar);
        }
    });
}

std::int64_t StatusBarCreate(std::int64_t number, NativeWindow* window) {
    const bool isOpen = window != nullptr && FromHandle(window)->Delegate() != nullptr;
    if (!isOpen || number < AnyNumber) {
        return 0;
    }
    if (number != AnyNumber) {
        StatusBarDestroy(number);
    }
    const auto [id, bar] = registry.Create(number);
    *bar = new QzStatusBarView(FromHandle(window));
    newestBar = id;
    return CreationResult(number, id, *bar);
}

void StatusBarAddField(std::int64_t width) {
    if (QzStatusBarView* const bar = FindBar(newestBar)) {
        bar->AddField(width);
    }
}

void StatusBarSetText(std::int64_t number, std::int64_t field, std::u16string_view text,
                      std::uint32_t flags) {
    const QzStatusBarView* const bar = FindBar(number);
    if (bar == nullptr || field < 0 || field >= static_cast<std::int64_t>(bar->CountFields())) {
        return;
    }
    QLabel& label = bar->Field(static_cast<std::size_t>(field));
    if ((flags & StatusRight) != 0) {
        label.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    } else if ((flags & StatusCentred) != 0) {
        label.setAlignment(Qt::AlignCenter);
    }
    label.setText(ToQString(text));
}

std::int64_t StatusBarHeight(std::int64_t number) {
    return FindBar(number) == nullptr ? 0 : BarHeight;
}

void StatusBarDestroy(std::int64_t number) {
    if (number == AnyNumber) {
        for (auto next = registry.First(); next.second != nullptr; next = registry.First()) {
            DestroyBar(next.first, *next.second);
        }
    } else if (QzStatusBarView* const bar = FindBar(number)) {
        DestroyBar(number, bar);
    }
}

}  // namespace rotavel
