#include "gui/image_gadget.h"

#include <bit>

#include <QFrame>
#include <QMouseEvent>
#include <QPainter>

#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/image.h"
#include "gui/windows/click_count.h"

namespace rotavel {

namespace {

class Qz_NSImageView final : public QzGadgetView<QFrame>, public QzControl {
  public:
    using QzGadgetView::QzGadgetView;

    void SetImage(const QImage& newImage) {
        image = newImage;
        update();
    }

    void SetStringValue(const QString&) override {}
    QString StringValue() const override { return {}; }

  protected:
    void mousePressEvent(QMouseEvent* event) override { clicks.Press(*event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { clicks.Press(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override {
        const int count = clicks.Of(event->button());
        if (event->button() == Qt::RightButton && count <= 2) {
            SendEventFor(Tag(), count == 1 ? ImageRightClick : ImageRightDoubleClick);
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
        const auto* const image = std::bit_cast<const QImage*>(static_cast<std::intptr_t>(state));
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

    std::int64_t shown = 0;
};

}  // namespace

std::int64_t ImageGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                               std::int64_t width, std::int64_t height, NativeImage* image,
                               std::uint32_t flags) {
    QWidget* const container = ContainerForNewGadget(number);
    if (container == nullptr) {
        return 0;
    }
    auto* const view = new Qz_NSImageView(container);
    view->setFrameStyle((flags & ImageSunken) != 0 ? QFrame::Panel | QFrame::Sunken
                                                   : QFrame::NoFrame);
    auto owned = std::make_unique<QzImageGadgetFunctions>();
    QzImageGadgetFunctions* const functions = owned.get();
    const std::int64_t result =
        PlaceGadget(std::move(owned), number, ImageKind, view, {x, y, width, height}, flags);
    if (image != nullptr) {
        functions->SetGadgetState(reinterpret_cast<std::intptr_t>(image));
    }
    return result;
}

}  // namespace rotavel
