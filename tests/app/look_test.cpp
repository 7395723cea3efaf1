#include <QComboBox>
#include <QLineEdit>
#include <QPaintEngine>
#include <QPainter>
#include <QStyleOptionComboBox>

#include "app/current_motorcycle.h"
#include "app/default_settings.h"
#include "app/gear_commands.h"
#include "app_test.h"
#include "gui/font.h"

namespace rotavel {
namespace {

using namespace tests;

// What a widget draws of texts, and where.
class TextRecorder final : public QImage, private QPaintEngine {
  public:
    explicit TextRecorder(QWidget& drawn)
        : QImage(drawn.size(), Format_RGB32), QPaintEngine(AllFeatures) {
        drawn.render(this, {}, {}, QWidget::RenderFlags());
    }

    QString Text;
    QRectF Place;

  private:
    QPaintEngine* paintEngine() const override { return const_cast<TextRecorder*>(this); }
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& now) override { transform = now.transform(); }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPath(const QPainterPath&) override {}
    void drawTextItem(const QPointF& start, const QTextItem& item) override {
        const QRectF box(start.x(), start.y() - item.ascent(), item.width(),
                         item.ascent() + item.descent());
        Text += item.text();
        Place |= transform.mapRect(box);
    }
    Type type() const override { return User; }

    QTransform transform;
};

// Where a widget's text may be.
QRectF PlaceForText(const QWidget& view) {
    QRectF place = view.rect();
    if (const auto* const box = qobject_cast<const QComboBox*>(&view)) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        place.setRight(
            view.style()
                ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, box)
                .left());
    }
    return place.adjusted(-0.5, -0.5, 0.5, 0.5);
}

// The colour of a field under its text.
QColor GroundOf(const QImage& image) {
    const int inside = static_cast<int>(4 * image.devicePixelRatio());
    return image.pixelColor(image.width() - inside, image.height() - inside);
}

// Along how many of its four edges a field draws something.
int FramedEdges(QImage image) {
    const int ground = qGray(GroundOf(image).rgb());
    int edges = 0;
    for (int turn = 0; turn < 4; ++turn) {
        const int outer = qGray(image.pixel(image.width() / 2, 0));
        const int inner = qGray(image.pixel(image.width() / 2, 1));
        edges += std::max(std::abs(outer - ground), std::abs(inner - ground)) > 10 ? 1 : 0;
        image = image.transformed(QTransform().rotate(90));
    }
    return edges;
}

// The main window as riders see it, in whatever font stands in for Arial and at whatever scale the
// environment asks for (CMakeLists.txt runs it in several).
using LookTest = AppTest;

TEST_F(LookTest, EveryTextFitsItsPlace) {
    Start(DefaultSettingsText);
    ChooseMotorcycle({&program.Makers[0], &program.Makers[0].Models[0]});
    SetGadgetText(RpmField, u"10000");
    SetGadgetText(PrimaryRatioField, u"1.3125");
    CalcSpeeds();
    for (const double points : {8.0, 12.0}) {
        FontLoad(ProgramFont, u"Arial", points);
        const double above = points - 8;  // letters this large may be higher than a row
        for (std::int64_t number = 0; number <= GraphicButton; ++number) {
            if (QWidget* const view = View(number)) {
                SetGadgetFont(number, ProgramFont);
                const TextRecorder drawn(*view);
                const QRectF place = PlaceForText(*view).adjusted(0, -above, 0, above);
                EXPECT_EQ(drawn.Text.toStdString(), ToUtf8(GetGadgetText(number)));
                EXPECT_TRUE(drawn.Text.isEmpty() || place.contains(drawn.Place)) << number;
            }
        }
    }
}

TEST_F(LookTest, FieldsHaveFramesInTheDesktopsColours) {
    QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    for (const QPalette& palette : {QApplication::palette(), dark}) {
        QApplication::setPalette(palette);
        Start("");
        for (QLineEdit* const field : View(TyreWidthField)->window()->findChildren<QLineEdit*>()) {
            const QImage image = field->grab().toImage();
            EXPECT_EQ(FramedEdges(image), 4) << field->y();
            EXPECT_EQ(GroundOf(image), palette.color(QPalette::Base));
        }
    }
    QApplication::setPalette(QPalette());
}

}  // namespace
}  // namespace rotavel
