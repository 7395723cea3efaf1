#include "gui/image_gadget.h"

#include <bit>

#include <QFrame>
#include <QMouseEvent>
#include <QPainter>

#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/handle.h"
#include "gui/windows/click_count.h"

namespace rotavel {

namespace {

class Qz_NSImageView final : public QFrame, public QzTaggedView, public QzControl {
  public:
    using QFrame::QFrame;

    void SetImage(const QImage& newImage) {
        image = newImage;
        update();
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override { clicks.Press(*event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { clicks.Press(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override {
        const int count = clicks.Of(event->button());
        if (event->button() == Qt::RightButton && count <= 2) {
            SendEvent(count == 1 ? ImageRightClick : ImageRightDoubleClick);
        }
    }
    void paintEvent(QPaintEvent* event) override {
        QFrame::paintEvent(event);
        if (image.isNull()) {
            return;
        }
        QPainter painter(this);
        const QRectF inside = contentsRect();
        QSizeF size = image.deviceIndependentSize();
        if (size.width() > inside.width() || size.height() > inside.height()) {
            size.scale(inside.size(), Qt::KeepAspectRatio);
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
        }
        QRectF place(QPointF(), size);
        place.moveCenter(inside.center());
        painter.drawImage(place, image);
    }

  private:
    QImage image;
    ClickCount clicks;
};

class QzImageGadgetFunctions final : public QzGadgetFunctions {
  public:
    void SetGadgetState(std::int64_t state) override {
        shown = state;
        const QImage* const image =
            FromHandle(std::bit_cast<NativeImage*>(static_cast<std::intptr_t>(state)));
        View().SetImage(image == nullptr ? QImage() : *image);
        if (image != nullptr) {
            ResizeToFit(*image);
        }
    }
    std::int64_t GetGadgetState() const override { return shown; }

  private:
    Qz_NSImageView& View() const { return static_cast<Qz_NSImageView&>(*Gadget->View); }

    void ResizeToFit(const QImage& image) const {
        const int frame = 2 * View().frameWidth();
        View().resize(image.deviceIndependentSize().toSize() + QSize(frame, frame));
    }

    std::int64_t shown = 0;  // only ever passed on: the image itself is copied
};

}  // namespace

std::int64_t ImageGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                               std::int64_t width, std::int64_t height, NativeImage* image,
                               std::uint32_t flags) {
    return CreateGadget<Qz_NSImageView, QzImageGadgetFunctions>(
        {number, ImageKind, x, y, width, height, flags}, [&](auto& view, auto& functions) {
            view.setFrameStyle((flags & ImageSunken) != 0 ? QFrame::Panel | QFrame::Sunken
                                                          : QFrame::NoFrame);
            functions.SetGadgetState(reinterpret_cast<std::intptr_t>(image));
        });
}

void SetGadgetImage(GadgetNumber gadget, NativeImage* image) {
    const GadgetRecord* const record = GadgetRegistry().Find(gadget);
    if (record != nullptr && record->Kind == ImageKind) {
        record->Functions->SetGadgetState(reinterpret_cast<std::intptr_t>(image));
    }
}

}  // namespace rotavel
