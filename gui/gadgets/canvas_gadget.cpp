#include "gui/canvas_gadget.h"

#include <QMouseEvent>
#include <QPainter>

#include "gui/gadget.h"
#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/colour.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/image.h"

namespace rotavel {

namespace {

void (*lostCanvasNotifier)(const NativeImage*) = nullptr;

class Qz_CanvasView final : public QzGadgetView<QWidget> {
  public:
    explicit Qz_CanvasView(QWidget* container) : QzGadgetView(container) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setMouseTracking(true);
    }
    ~Qz_CanvasView() override {
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
    QPoint Mouse() const { return mouse; }
    void SetBackground(const QColor& colour) {
        background = colour;
        if (!bitmap.isNull() && !bitmap.paintingActive()) {
            bitmap.fill(background);
        }
        update();
    }
    QColor Background() const { return background; }

  protected:
    void enterEvent(QEnterEvent* event) override {
        mouse = PixelAt(event->position());
        SendEventFor(Tag(), CanvasMouseEnter);
    }
    void leaveEvent(QEvent*) override { SendEventFor(Tag(), CanvasMouseLeave); }
    void mouseMoveEvent(QMouseEvent* event) override {
        mouse = PixelAt(event->position());
        SendEventFor(Tag(), CanvasMouseMove);
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawImage(0, 0, Bitmap());
    }

  private:
    // The pointer lies in a pixel, not at the corner nearest to it.
    static QPoint PixelAt(QPointF place) { return {qFloor(place.x()), qFloor(place.y())}; }

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
    QPoint mouse;
    QColor background = Qt::white;
};

class QzCanvasGadgetFunctions final : public QzGadgetFunctions {
  public:
    void DisableGadget(bool state) override { View().setEnabled(!state); }

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
        if (type == BackColour) {
            View().SetBackground(colour == NoColour ? QColor(Qt::white)
                                                    : ToQColor(static_cast<std::uint32_t>(colour)));
        }
    }
    std::int64_t GetGadgetColor(std::int64_t type) const override {
        return type == BackColour ? FromQColor(View().Background()) : 0;
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
    QWidget* const container = ContainerForNewGadget(number);
    if (container == nullptr) {
        return 0;
    }
    return PlaceGadget(std::make_unique<QzCanvasGadgetFunctions>(), number, CanvasKind,
                       new Qz_CanvasView(container), {x, y, width, height}, flags);
}

}  // namespace rotavel
