#include "gui/status_bar.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include <QLabel>
#include <QPainter>
#include <QPointer>

#include "gui/toolkit/coordinates.h"
#include "gui/toolkit/font.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/text.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/status_bars.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

constexpr int BarHeight = 24;
constexpr int FieldHeight = 20;
constexpr int TextIndent = 4;  // of a left or right text to its field's edge

// The bar's view; its record goes with it, also when the window takes it along.
class QzStatusBarView final : public QWidget {
  public:
    QzStatusBarView(QzWindow* owner, std::int64_t barNumber);
    ~QzStatusBarView() override;

    void AddField(std::int64_t width) {
        fields.push_back({width == IgnoreValue ? width : ToCoordinate(width), nullptr});
    }
    void SetText(std::size_t index, const QString& text, std::uint32_t flags);
    std::size_t CountFields() const { return fields.size(); }
    void AdjustSize();
    bool IsOn(const QzWindow* owner) const { return window == owner; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Field {
        std::int64_t Width;
        QLabel* Label;  // made with the first text
    };

    QzWindow* window;
    std::int64_t number;
    std::vector<Field> fields;
};

struct StatusBarRecord {
    QzStatusBarView* View = nullptr;
};

NumberedObjects<StatusBarRecord> registry;
QPointer<QzStatusBarView> newestBar;

QzStatusBarView::QzStatusBarView(QzWindow* owner, std::int64_t barNumber)
    : QWidget(owner->ContentView()), window(owner), number(barNumber) {
    AdjustSize();
    show();
}

QzStatusBarView::~QzStatusBarView() {
    registry.Remove(number);
}

void QzStatusBarView::SetText(std::size_t index, const QString& text, std::uint32_t flags) {
    QLabel*& label = fields[index].Label;
    if (label == nullptr) {
        label = new QLabel(this);
        label->setTextFormat(Qt::PlainText);
        label->setIndent(TextIndent);
        if (DefaultGadgetFont() != AnyNumber) {
            label->setFont(FontForGadgets(DefaultGadgetFont()));
        }
        label->show();
    }
    if ((flags & StatusRight) != 0) {
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    } else if ((flags & StatusCentred) != 0) {
        label->setAlignment(Qt::AlignCenter);
    }
    label->setText(text);
    AdjustSize();
}

void QzStatusBarView::AdjustSize() {
    const QSize content = window->ContentSize();
    setGeometry(0, content.height() - BarHeight, content.width(), BarHeight);
    std::int64_t fixedWidth = 0;
    std::int64_t flexible = 0;
    for (const Field& field : fields) {
        (field.Width == IgnoreValue ? flexible : fixedWidth) +=
            field.Width == IgnoreValue ? 1 : field.Width;
    }
    const std::int64_t share =
        flexible == 0 ? 0 : std::max<std::int64_t>(content.width() - fixedWidth, 0) / flexible;
    std::int64_t x = 0;
    for (const Field& field : fields) {
        const std::int64_t width = field.Width == IgnoreValue ? share : field.Width;
        if (field.Label != nullptr) {
            field.Label->setGeometry(ToCoordinate(x), (BarHeight - FieldHeight) / 2, ToSide(width),
                                     FieldHeight);
        }
        x += width;
    }
}

void QzStatusBarView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
}

}  // namespace

void AdjustStatusBarsOf(const QzWindow* window) {
    for (auto next = registry.First(); next.second != nullptr; next = registry.After(next.first)) {
        if (next.second->View->IsOn(window)) {
            next.second->View->AdjustSize();
        }
    }
}

void DestroyStatusBarsOf(const QzWindow* window) {
    for (auto next = registry.First(); next.second != nullptr; next = registry.After(next.first)) {
        if (next.second->View->IsOn(window)) {
            delete next.second->View;
        }
    }
}

std::int64_t StatusBarCreate(std::int64_t number, NativeWindow* window) {
    if (window == nullptr || number < AnyNumber) {
        return 0;
    }
    if (number != AnyNumber) {
        StatusBarDestroy(number);
    }
    const auto [id, record] = registry.Create(number);
    record->View = new QzStatusBarView(FromHandle(window), id);
    newestBar = record->View;
    return CreationResult(number, id, record->View);
}

void StatusBarAddField(std::int64_t width) {
    if (newestBar != nullptr) {
        newestBar->AddField(width);
        newestBar->AdjustSize();
    }
}

void StatusBarSetText(std::int64_t number, std::int64_t field, std::u16string_view text,
                      std::uint32_t flags) {
    const StatusBarRecord* const record = registry.Find(number);
    if (record == nullptr || field < 0 ||
        field >= static_cast<std::int64_t>(record->View->CountFields())) {
        return;
    }
    record->View->SetText(static_cast<std::size_t>(field), ToQString(text), flags);
}

std::int64_t StatusBarHeight(std::int64_t number) {
    return registry.Find(number) == nullptr ? 0 : BarHeight;
}

void StatusBarDestroy(std::int64_t number) {
    if (number == AnyNumber) {
        for (auto next = registry.First(); next.second != nullptr; next = registry.First()) {
            delete next.second->View;
        }
    } else if (const StatusBarRecord* const record = registry.Find(number)) {
        delete record->View;
    }
}

}  // namespace rotavel
