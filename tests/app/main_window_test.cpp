#include "app/main_window.h"

#include <sstream>

#include <QAccessible>
#include <QApplication>
#include <QCryptographicHash>
#include <QDialog>
#include <QScreen>
#include <QTimer>

#include "app/current_motorcycle.h"
#include "app_test.h"
#include "gui/menu.h"
#include "gui/window.h"

namespace rotavel {
namespace {

using namespace tests;

// To check a long text that was put together elsewhere.
std::string HashOf(const std::string& text) {
    const QByteArray bytes = QByteArray::fromStdString(text);
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().toStdString();
}

// A gadget's number, kind (what a screen reader calls its role), place, size, alignment, text, name
// in all its forms, and whether it is a field that takes more than digits. Leaves "3." in it.
std::string DescriptionOf(std::int64_t number) {
    const QWidget& view = *View(number);
    const auto* const read = QAccessible::queryAccessibleInterface(View(number));
    std::ostringstream description;
    description << number << ' ' << read->role() << ' ' << view.x() << ' ' << view.y() << ' '
                << view.width() << ' ' << view.height() << ' ' << view.property("alignment").toInt()
                << ' ' << view.property("frameShape").toInt() << ' '
                << ToUtf8(GetGadgetText(number));
    for (const QString& name :
         {view.toolTip(), read->text(QAccessible::Name), read->text(QAccessible::Description)}) {
        description << '|' << name.toStdString();
    }
    SetGadgetText(number, u"3.");
    description << '|' << view.property("acceptableInput").toBool() << '\n';
    return description.str();
}

class MainWindowTest : public AppTest {
  protected:
    // In the order in which they were made.
    static std::string Gadgets() {
        std::string gadgets;
        for (const QObject* const child : View(TyreWidthField)->parentWidget()->children()) {
            for (std::int64_t number = 0; number < 100; ++number) {
                gadgets += View(number) == child ? DescriptionOf(number) : "";
            }
        }
        return gadgets;
    }
    // Title and text of the message that is shown meanwhile, which is answered with "OK".
    template <typename Action>
    static std::u16string MessageDuring(Action action) {
        QString message;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&message] {
            if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                message = box->windowTitle() + "|" + box->findChildren<QLabel*>().at(1)->text();
                box->accept();
            }
        });
        timer.start(1);
        action();
        return message.toStdU16String();
    }
};

TEST_F(MainWindowTest, OpensWithTheDefaultFileAtTheFirstStart) {
    ASSERT_TRUE(StartUp(program, ToUtf16(file)));
    Run();
    EXPECT_EQ(HashOf(ReadFile(file)), "ff5cf62e08f6d32b8e5a62f7ff4e6e7c");
    const std::string menus = MenuOutline(MainWindow);
    EXPECT_EQ(HashOf(menus.substr(menus.find(",File("))), "225f4c29b6bdba02de3fc01453265995")
        << menus;
    EXPECT_EQ(StatusText(TyreWidthField), u" - ");
    EXPECT_TRUE(View(TyreWidthField)->hasFocus());
    EXPECT_EQ(StatusField(MaxRpmField).width(), 445);
    EXPECT_EQ(StatusField(MaxRpmField).alignment(), Qt::AlignCenter);
    EXPECT_EQ(StatusField(MaxRpmField).font(), View(GraphicButton)->font());
    EXPECT_EQ(QApplication::windowIcon().availableSizes().size(), 3);
    const QWidget& window = *View(TyreWidthField)->window();
    EXPECT_EQ(window.windowTitle().toStdU16String(),
              u"Rotavel V1.55 \u00A9 2026 The Rotavel authors");
    EXPECT_EQ(View(TyreWidthField)->parentWidget()->size(), QSize(450, 500));
    const QPoint middle = window.screen()->availableGeometry().center();
    EXPECT_LT((window.geometry().center() - middle).manhattanLength(), 10);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(View(GraphicButton)->font().family(), "Arial");
    EXPECT_EQ(View(GraphicButton)->font().pointSize(), 8);
    EXPECT_EQ(GetGadgetItemText(SpeedUnitBox, 0) + GetGadgetItemText(SpeedUnitBox, 1), u"km/hmph");
    const std::string gadgets = Gadgets();
    EXPECT_EQ(HashOf(gadgets), "225de59a082870fc03656bf8d2b1469d") << gadgets;
}

TEST_F(MainWindowTest, TellsOfItselfAndQuits) {
    Start("[Own]\n[ -My-Bike ]\n");
    EXPECT_NE(MenuOutline(MainWindow).find("(Own,My-Bike,)"), std::string::npos);
    PostProgramEvent(MenuChosen, MainWindow, AboutMenuItem);
    EXPECT_EQ(MessageDuring([this] { Run(); }),
              u"About|Rotavel V1.55\n\n\u00A9 2026 The Rotavel authors\n\n"
              u"Because some Guzzis don't have a revolution counter :(\n");
    PostProgramEvent(MenuChosen, -1, QuitItem);  // the session ends
    RunMainLoop(program);
    EXPECT_EQ(PeekEvent(), 0U);
    const std::u16string nowhere = ToUtf16(folder.File("missing/Rotavel.ini"));
    EXPECT_EQ(MessageDuring([&] { EXPECT_FALSE(StartUp(program, nowhere)); }),
              u"Error|No ini file found");
}

TEST_F(MainWindowTest, ForgetsTheMotorcycleWhenARatioIsTyped) {
    Start("[Moto - Old]\n");
    for (const std::int64_t field : {GearSpeedField, GearRatioField, GearRatioField + 5}) {
        PostProgramEvent(MenuChosen, MainWindow, FirstMotorcycleMenuItem);
        ActivateGadget(field);
        Run();
        EXPECT_EQ(StatusText(TyreWidthField), u"Moto - Old") << "the keyboard changes nothing";
        for (const std::int64_t value : {1, 3, 5, 30, 51, 55, 57}) {
            EXPECT_EQ(GetGadgetText(value), u"0") << value << " is not in the file";
        }
        Press("1");
        Run();
        EXPECT_EQ(CurrentModel(), field == GearSpeedField ? u"Old" : u"");
        EXPECT_EQ(StatusText(TyreWidthField).empty(), field != GearSpeedField);
    }
}

TEST_F(MainWindowTest, ValuesLastFromRunToRun) {
    const std::string settings =
        "[Settings]\nManufacturer = Moto\nModell = Old\nMaxRPM = 4000\nRearWheelWidth = 130\n"
        "RearWheelPercentHeight = 80 \nRearWheelDiameter = 17\nGear1Ratio = 2,3636\n"
        "Gear2Ratio = 1.6429\nGear3Ratio = 1.2778\nGear4Ratio = 1.0556\nGear5Ratio = 0.9000\n"
        "Gear6Ratio = \nPrimaryRatio = 1,3125\nFinalDriveRatio = 4.125\nSpeedType = km/h\n\n"
        "[A - one]\nMaxRPM = 1\n";
    Start(settings);
    EXPECT_EQ(StatusText(TyreWidthField), u"Moto - Old");
    EXPECT_EQ(GetGadgetText(RpmField), u"4000");
    SettingsSelectGroup(u"A - one");
    ShutDown(program);
    EXPECT_EQ(ReadFile(file), "\xEF\xBB\xBF\n" + settings);

    Start("[Settings]\nSpeedType = MPH\nRearWheelWidth = 3.25\nRearWheelPercentHeight = 80\n");
    EXPECT_EQ(GetGadgetText(RpmField), u"8750");
    EXPECT_FALSE(View(PercentHeightField)->isEnabled());
    SetGadgetText(GearRatioField + 1, u"\u00BD x");
    SetGadgetText(MaxRpmField, u"-9223372036854775808");
    ShutDown(program);
    EXPECT_EQ(ReadFile(file),
              "\xEF\xBB\xBF\n[Settings]\nSpeedType = mph\nRearWheelWidth = 3.25\n"
              "RearWheelPercentHeight = \nManufacturer = \nModell = \n"
              "MaxRPM = -9223372036854775808\nRearWheelDiameter = \nGear1Ratio = \nGear2Ratio = "
              "\u00BD x\nGear3Ratio = \n"
              "Gear4Ratio = \nGear5Ratio = \nGear6Ratio = \nPrimaryRatio = \nFinalDriveRatio = \n");
}

}  // namespace
}  // namespace rotavel
