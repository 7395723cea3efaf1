#include "gui/canvas_gadget.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <QApplication>
#include <QFocusFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWindow>

#include "gui/gadget.h"
#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/accessible_role.h"
#include "gui/toolkit/colour.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/image.h"
#include "gui/windows/qz_window.h"

namespace rotavel {

namespace {

void (*lostCanvasNotifier)(const NativeImage*) = nullptr;

constexpr int LongStep = 10;  // of an arrow key with Shift
constexpr int PointerArm = 8;

// Where an arrow key moves the pointer; nothing for another key.
std::optional<QPoint> StepOf(const QKeyEvent& key) {
    if ((key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) {
        return std::nullopt;
    }
    const int step = (key.modifiers() & Qt::ShiftModifier) != 0 ? LongStep : 1;
    switch (key.key()) {
        case Qt::Key_Left:
            return QPoint(-step, 0);
        case Qt::Key_Right:
            return QPoint(step, 0);
        case Qt::Key_Up:
            return QPoint(0, -step);
        case Qt::Key_Down:
            return QPoint(0, step);
        default:
            return std::nullopt;
    }
}

class Qz_CanvasView final : public QzGadgetView<QWidget> {
  public:
    explicit Qz_CanvasView(QWidget* container) : QzGadgetView(container) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFocusPolicy(Qt::TabFocus);
        SetAccessibleRole(*this, QAccessible::Graphic);
    }
    ~Qz_CanvasView() override {
        delete focusFrame;
        if (bitmap.paintingActive() && lostCanvasNotifier != nullptr) {
            lostCanvasNotifier(ToHandle<NativeImage>(&bitmap));
        }
    }

    // Of the gadget's present size; what was drawn before a change of size stays.
    QImage& Bitmap() {
        if (bitmap.size() != BitmapSize(width(), height()) && !bitmap.paintingActive()) {
            AdjustImage();
        }
        return bitmap;
    }
    QPoint Mouse() const { return mouse.value_or(QPoint()); }
    void SetBackground(const QColor& colour) {
        background = colour;
        if (!bitmap.isNull() && !bitmap.paintingActive()) {
            bitmap.fill(background);
        }
        update();
    }
    QColor Background() const { return background; }

  protected:
    bool event(QEvent* event) override {
        switch (event->type()) {
            case QEvent::Show:
                // The toolkit tells a view of places that it has rounded to whole pixels, which at
                // a screen scale other than 1 may be the next one, or beyond the view.
                window()->windowHandle()->installEventFilter(this);
                break;
            case QEvent::Hide:
            case QEvent::WindowDeactivate:
                MouseLeft();
                break;
            default:
                break;
        }
        return QzGadgetView::event(event);
    }
    // Of the native window.
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseMove) {
            const auto& move = static_cast<QMouseEvent&>(*event);
            FollowMouse(move.position(), move.buttons() != Qt::NoButton);
            if (hasMouse) {
                SendEvent(CanvasMouseMove);
            }
        } else if (event->type() == QEvent::Enter) {
            FollowMouse(static_cast<QEnterEvent*>(event)->position(), false);
        } else if (event->type() == QEvent::Leave) {
            MouseLeft();
        }
        return false;
    }
    void focusInEvent(QFocusEvent*) override {
        // Around the view: on it, it would hide what the program drew.
        if (focusFrame == nullptr) {
            focusFrame = new QFocusFrame(this);
            focusFrame->setWidget(this);
        }
        focusFrame->show();
    }
    void focusOutEvent(QFocusEvent*) override {
        if (focusFrame != nullptr) {
            focusFrame->hide();
        }
        if (hasMouseByKeys) {
            MouseLeft();
        }
    }
    void keyPressEvent(QKeyEvent* event) override {
        const std::optional<QPoint> step = StepOf(*event);
        event->setAccepted(step.has_value());
        if (step) {
            MoveByKey(*step);
        }
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawImage(0, 0, Bitmap());
        if (hasMouseByKeys) {
            DrawPointer(painter);
        }
    }

  private:
    void FollowMouse(QPointF place, bool isPressed) {
        if (!IsUnder(place)) {
            MouseLeft();
            return;
        }
        // A press that began elsewhere is not this gadget's business.
        if (!hasMouse && isPressed) {
            return;
        }
        const QPointF inside = mapFrom(window(), place);
        mouse = QPoint(qFloor(inside.x()), qFloor(inside.y()));
        TakePointerFromKeys();
        if (!std::exchange(hasMouse, true)) {
            SendEvent(CanvasMouseEnter);
        }
    }
    void TakePointerFromKeys() {
        if (std::exchange(hasMouseByKeys, false)) {
            update();
        }
    }
    void MoveByKey(QPoint step) {
        const QPoint from = mouse.value_or(rect().center());
        const QPoint to = hasMouse ? from + step : from;
        mouse = QPoint(std::clamp(to.x(), 0, std::max(width() - 1, 0)),
                       std::clamp(to.y(), 0, std::max(height() - 1, 0)));
        hasMouseByKeys = true;
        update();
        const QPoint arms(PointerArm, PointerArm);
        QzWindow::Of(this)->Reveal(*this, QRect(Mouse() - arms, Mouse() + arms));
        if (!std::exchange(hasMouse, true)) {
            SendEvent(CanvasMouseEnter);
        }
        if (hasMouse) {  // a binding may have hidden the canvas
            SendEvent(CanvasMouseMove);
        }
    }
    // Where the arrow keys have the pointer, in colours that differ from what it lies on.
    void DrawPointer(QPainter& painter) const {
        const QPoint across(PointerArm, 0);
        const QPoint along(0, PointerArm);
        painter.setCompositionMode(QPainter::CompositionMode_Difference);
        painter.setPen(Qt::white);
        painter.drawLine(Mouse() - across, Mouse() + across);
        painter.drawLine(Mouse() - along, Mouse() + along);
    }
    void MouseLeft() {
        TakePointerFromKeys();
        if (std::exchange(hasMouse, false)) {
            SendEvent(CanvasMouseLeave);
        }
    }
    // Whether a place in the window is in a pixel of this gadget that can be seen, while its window
    // has the keyboard and no menu is open.
    bool IsUnder(QPointF place) const {
        if (!isEnabled() || QApplication::activeWindow() != window() ||
            QApplication::activePopupWidget() != nullptr) {
            return false;
        }
        return isAncestorOf(window()->childAt(qFloor(place.x()), qFloor(place.y())));
    }

    QImage CreateImage(int width, int height) const {
        QImage image = MakeBitmap(width, height);
        if (!image.isNull()) {
            image.fill(background);
        }
        return image;
    }
    void CopyBitmap(QImage& to) const {
        if (!to.isNull()) {
            QPainter(&to).drawImage(0, 0, bitmap);
        }
    }
    void AdjustImage() {
        QImage adjusted = CreateImage(width(), height());
        CopyBitmap(adjusted);
        bitmap = std::move(adjusted);
    }

    QImage bitmap;
    std::optional<QPoint> mouse;
    bool hasMouse = false;
    bool hasMouseByKeys = false;
    QPointer<QFocusFrame> focusFrame;  // made with the first focus; the container owns it
    QColor background = Qt::white;
};

class QzCanvasGadgetFunctions final : public QzGadgetFunctions {
  public:
    void DisableGadget(bool state) override { DisableView(state); }

    void SetGadgetAttribute(std::int64_t attribute, std::int64_t value) override {
        if (attribute == CanvasCursor) {
            View().setCursor(value == CursorCrossHair ? Qt::CrossCursor : Qt::ArrowCursor);
        }
    }
    std::int64_t GetGadgetAttribute(std::int64_t attribute) const override {
        switch (attribute) {
            case CanvasMouseX:
                return View().Mouse().x();
            case CanvasMouseY:
                return View().Mouse().y();
            case CanvasCursor:
                return View().cursor().shape() == Qt::CrossCursor ? CursorCrossHair : CursorArrow;
            default:
                return 0;
        }
    }

    void SetGadgetColor(std::int64_t type, std::int64_t colour) override {
        if (type == GadgetBackColor) {
            View().SetBackground(colour == NoGadgetColor
                                     ? QColor(Qt::white)
                                     : ToQColor(static_cast<std::uint32_t>(colour)));
        }
    }
    std::int64_t GetGadgetColor(std::int64_t type) const override {
        return type == GadgetBackColor ? FromQColor(View().Background()) : 0;
    }

    void OpenGadgetList(std::int64_t) override {
        if (QzGadgetList* const list = QzGadgetList::CurrentList()) {
            list->Push(ToHandle<NativeView>(Gadget->View));
        }
    }

  private:
    Qz_CanvasView& View() const { return static_cast<Qz_CanvasView&>(*Gadget->View); }
};

Qz_CanvasView* FindCanvas(GadgetNumber gadget) {
    const GadgetRecord* const record = GadgetRegistry().Find(gadget);
    return record == nullptr ? nullptr : dynamic_cast<Qz_CanvasView*>(record->View);
}

}  // namespace

NativeImage* CanvasBitmap(GadgetNumber canvas) {
    Qz_CanvasView* const view = FindCanvas(canvas);
    return view == nullptr || view->Bitmap().isNull() ? nullptr
                                                      : ToHandle<NativeImage>(&view->Bitmap());
}

void ShowCanvasBitmap(GadgetNumber canvas) {
    if (Qz_CanvasView* const view = FindCanvas(canvas)) {
        view->update();
    }
}

void NotifyOfLostCanvas(void (*notify)(const NativeImage* bitmap)) {
    lostCanvasNotifier = notify;
}

std::int64_t CanvasGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height, std::uint32_t flags) {
    return CreateGadget<Qz_CanvasView, QzCanvasGadgetFunctions>(
        {number, CanvasKind, x, y, width, height, flags});
}

}  // namespace rotavel
