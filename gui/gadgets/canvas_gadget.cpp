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
#include "gui/toolkit/bitmap.h"
#include "gui/toolkit/colour.h"
#include "gui/toolkit/handle.h"
#include "gui/windows/qz_window.h"

namespace rotavel {

namespace {

void (*lostCanvasHook)(const NativeImage*) = nullptr;

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

class Qz_CanvasView final : public QWidget, public QzTaggedView {
  public:
    explicit Qz_CanvasView(QWidget* container) : QWidget(container) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFocusPolicy(Qt::TabFocus);
        SetAccessibleRole(*this, QAccessible::Graphic);
    }
    ~Qz_CanvasView() override {
        delete focusFrame;
        if (bitmap.paintingActive() && lostCanvasHook != nullptr) {
            lostCanvasHook(ToHandle<NativeImage>(&bitmap));
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
        if (event->type() == QEvent::Show) {
            // The toolkit tells a view of places that it has rounded to whole pixels, which at a
            // screen scale other than 1 may be the next one, or beyond the view.
            window()->windowHandle()->installEventFilter(this);
        } else if (event->type() == QEvent::Hide || event->type() == QEvent::WindowDeactivate) {
            PassPointer(Pointer::Away);
        }
        return QWidget::event(event);
    }
    // Of the native window.
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseMove) {
            const auto& move = static_cast<QMouseEvent&>(*event);
            FollowMouse(move.position(), move.buttons() != Qt::NoButton);
            if (pointer != Pointer::Away) {
                SendEvent(CanvasMouseMove);
            }
        } else if (event->type() == QEvent::Enter) {
            FollowMouse(static_cast<QEnterEvent*>(event)->position(), false);
        } else if (event->type() == QEvent::Leave) {
            PassPointer(Pointer::Away);
        }
        return false;
    }
    void focusInEvent(QFocusEvent*) override {
        // Around the view: on it, it would hide what the program drew.
        focusFrame = new QFocusFrame(this);
        focusFrame->setWidget(this);
        focusFrame->show();
    }
    void focusOutEvent(QFocusEvent*) override {
        delete focusFrame;  // left alone it would come back with the view
        if (pointer == Pointer::OfKeys) {
            PassPointer(Pointer::Away);
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
        if (pointer == Pointer::OfKeys) {
            DrawPointer(painter);
        }
    }

  private:
    enum class Pointer { Away, OfMouse, OfKeys };

    void PassPointer(Pointer to) {
        const Pointer from = std::exchange(pointer, to);
        if (from == Pointer::OfKeys || to == Pointer::OfKeys) {
            update();
        }
        if (from == Pointer::Away && to != Pointer::Away) {
            SendEvent(CanvasMouseEnter);
        } else if (from != Pointer::Away && to == Pointer::Away) {
            SendEvent(CanvasMouseLeave);
        }
    }
    void FollowMouse(QPointF place, bool isPressed) {
        if (!IsUnder(place)) {
            PassPointer(Pointer::Away);
            return;
        }
        // A press that began elsewhere is not this gadget's business.
        if (pointer == Pointer::Away && isPressed) {
            return;
        }
        const QPointF inside = mapFrom(window(), place);
        mouse = QPoint(qFloor(inside.x()), qFloor(inside.y()));
        PassPointer(Pointer::OfMouse);
    }
    void MoveByKey(QPoint step) {
        const QPoint from = mouse.value_or(rect().center());
        const QPoint to = pointer == Pointer::Away ? from : from + step;
        mouse = QPoint(std::clamp(to.x(), 0, std::max(width() - 1, 0)),
                       std::clamp(to.y(), 0, std::max(height() - 1, 0)));
        const QPoint arms(PointerArm, PointerArm);
        QzWindow::Of(this)->Reveal(*this, QRect(Mouse() - arms, Mouse() + arms));
        PassPointer(Pointer::OfKeys);
        if (pointer != Pointer::Away) {  // a binding may have hidden the canvas
            SendEvent(CanvasMouseMove);
        }
    }
    // Where the arrow keys have the pointer, in colours that differ from what it lies on.
    void DrawPointer(QPainter& painter) const {
        painter.setCompositionMode(QPainter::CompositionMode_Difference);
        painter.setPen(Qt::white);
        for (const QPoint arm : {QPoint(PointerArm, 0), QPoint(0, PointerArm)}) {
            painter.drawLine(Mouse() - arm, Mouse() + arm);
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

    void AdjustImage() {
        QImage adjusted = MakeBitmap(width(), height());
        if (!adjusted.isNull()) {
            adjusted.fill(background);
            QPainter(&adjusted).drawImage(0, 0, bitmap);
        }
        bitmap = std::move(adjusted);
    }

    QImage bitmap;
    std::optional<QPoint> mouse;
    Pointer pointer = Pointer::Away;
    QPointer<QFocusFrame> focusFrame;  // while this has the focus; the container owns it
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

void SetLostCanvasHook(void (*notify)(const NativeImage* bitmap)) {
    lostCanvasHook = notify;
}

std::int64_t CanvasGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height, std::uint32_t flags) {
    return CreateGadget<Qz_CanvasView, QzCanvasGadgetFunctions>(
        {number, CanvasKind, x, y, width, height, flags});
}

}  // namespace rotavel
