#include <numeric>
#include <vector>

#include <QComboBox>
#include <QLineEdit>
#include <QPaintEngine>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>

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
QRect PlaceForText(const QWidget& view) {
    if (const auto* const box = qobject_cast<const QComboBox*>(&view)) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        const QRect arrow = view.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                         QStyle::SC_ComboBoxArrow, box);
        return {1, 1, arrow.left() - 1, view.height() - 2};
    }
    return qobject_cast<const QLabel*>(&view) != nullptr ? view.rect()
                                                         : view.rect().adjusted(1, 1, -1, -1);
}

// How far two colours are apart, at most 765.
int Contrast(const QColor& one, const QColor& other) {
    return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
           std::abs(one.blue() - other.blue());
}

// The colour of a field under its text.
QColor GroundOf(const QImage& image) {
    const int inside = static_cast<int>(4 * image.devicePixelRatio());
    return image.pixelColor(image.width() - inside, image.height() - inside);
}

// Whether something is drawn along all four edges of a field.
bool HasFrame(QWidget& field) {
    const QImage image = field.grab().toImage();
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    const QColor ground = GroundOf(image);
    const auto stands = [&](QPoint outer, QPoint inner) {
        return Contrast(image.pixelColor(outer), ground) > 30 ||
               Contrast(image.pixelColor(inner), ground) > 30;
    };
    return stands({0, bottom / 2}, {1, bottom / 2}) &&
           stands({right, bottom / 2}, {right - 1, bottom / 2}) &&
           stands({right / 2, 0}, {right / 2, 1}) &&
           stands({right / 2, bottom}, {right / 2, bottom - 1});
}

// The main window as riders see it, in whatever font stands in for Arial and at whatever scale the
// environment asks for (CMakeLists.txt runs it in several).
class LookTest : public AppTest {
  protected:
    void StartWithSixSpeed() {
        Start(DefaultSettingsText);
        ChooseMotorcycle({&program.Makers[0], &program.Makers[0].Models[0]});
        SetGadgetText(RpmField, u"10000");
        SetGadgetText(PrimaryRatioField, u"1.3125");
        CalcSpeeds();
    }
    static void ExpectTextsToFit(Qt::Orientations directions) {
        for (const std::int64_t number : Gadgets()) {
            QWidget* const view = View(number);
            const TextRecorder drawn(*view);
            const QRect place = PlaceForText(*view);
            SCOPED_TRACE(number);
            EXPECT_EQ(drawn.Text.toStdString(), ToUtf8(GetGadgetText(number)));
            if (drawn.Text.isEmpty()) {
                continue;
            }
            EXPECT_GE(drawn.Place.left(), place.left() - 0.5);
            EXPECT_LE(drawn.Place.right(), place.right() + 1.5);
            if (directions.testFlag(Qt::Vertical)) {
                EXPECT_GE(drawn.Place.top(), -0.5);
                EXPECT_LE(drawn.Place.bottom(), view->height() + 0.5);
            }
        }
    }
    static std::vector<std::int64_t> Gadgets() {
        std::vector<std::int64_t> numbers(63);
        std::iota(numbers.begin(), numbers.end(), 0);
        std::erase_if(numbers, [](std::int64_t each) { return View(each) == nullptr; });
        return numbers;
    }
};

TEST_F(LookTest, EveryTextFitsItsPlace) {
    StartWithSixSpeed();
    for (const std::int64_t unit : {0, 1}) {
        SetGadgetState(SpeedUnitBox, unit);
        ExpectTextsToFit(Qt::Horizontal | Qt::Vertical);
    }
}

TEST_F(LookTest, TextsThatDoNotFitAreNarrowedAndWidenAgain) {
    constexpr std::int64_t large = 1;
    FontLoad(large, u"Arial", 12);
    StartWithSixSpeed();
    for (const std::int64_t number : Gadgets()) {
        SetGadgetFont(number, large);
    }
    ExpectTextsToFit(Qt::Horizontal);
    const QFont narrowed = View(PrimaryRatioField)->font();
    SetGadgetText(PrimaryRatioField, u"1");
    const QFont whole = View(PrimaryRatioField)->font();
    EXPECT_LT(QFontMetrics(narrowed).horizontalAdvance("1.3125"),
              QFontMetrics(whole).horizontalAdvance("1.3125"));
    ActivateGadget(PrimaryRatioField);
    Type("1.3125");
    Run();
    ExpectTextsToFit(Qt::Horizontal);
}

TEST_F(LookTest, FieldsHaveFramesInTheDesktopsColours) {
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    for (const QPalette& palette : {light, dark}) {
        QApplication::setPalette(palette);
        StartWithSixSpeed();
        for (const std::int64_t number : Gadgets()) {
            QWidget* const view = View(number);
            if (qobject_cast<QLineEdit*>(view) != nullptr) {
                EXPECT_TRUE(HasFrame(*view)) << number;
                EXPECT_EQ(GroundOf(view->grab().toImage()), palette.color(QPalette::Base));
            }
        }
    }
    QApplication::setPalette(QPalette());
}

}  // namespace
}  // namespace rotavel
