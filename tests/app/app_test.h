#pragma once

#include <cstdlib>
#include <string>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "app/main_loop.h"
#include "app/main_window.h"
#include "app/start_up.h"
#include "gui/gadget.h"
#include "settings/settings_store.h"
#include "tests/support/pixels.h"
#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel::tests {

// FNV-1a, to check a long text that was put together elsewhere.
inline std::uint64_t HashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    }
    return hash;
}

inline constexpr std::int64_t ChartCanvas = 63;

// A screen that charts fit on, in place of the small one that the toolkit makes up.
[[maybe_unused]] inline const int largeScreen =
    setenv("ROTAVEL_TEST_PLATFORM", "offscreen:configfile=" APP_TESTS_FOLDER "/screen.json", 0);

// A settings file of a motorcycle whose decimals are typed with commas here and there.
inline const std::string FiveSpeed =
    "[Settings]\nManufacturer = Moto\nModell = Old\nMaxRPM = 4000\nRearWheelWidth = 130\n"
    "RearWheelPercentHeight = 80 \nRearWheelDiameter = 17\nGear1Ratio = 2,3636\n"
    "Gear2Ratio = 1.6429\nGear3Ratio = 1.2778\nGear4Ratio = 1.0556\nGear5Ratio = 0.9000\n"
    "Gear6Ratio = \nPrimaryRatio = 1,3125\nFinalDriveRatio = 4.125\nSpeedType = km/h\n";

// The program from its start to its end, with a settings file of the test's own.
class AppTest : public DrawTest {
  protected:
    void TearDown() override {
        SettingsClose();
        DrawTest::TearDown();
    }

    void Start(std::string_view settings) {
        SettingsClose();
        WriteFile(file, std::string(settings));
        program = {};
        ASSERT_TRUE(StartUp(program, ToUtf16(file)));
        Run();
    }
    // Lets the program do what the input so far asks for, and its windows come and go.
    void Run() {
        for (int turns = 0; turns < 2; ++turns) {
            QCoreApplication::processEvents();
            PostProgramEvent(CloseRequested, MainWindow);
            RunMainLoop(program);
        }
        ForgetEvents();
    }
    void Push(std::int64_t button) {
        Click(button);
        Run();
    }
    // A point of the open chart's image.
    void PointAt(int x, int y) {
        QWidget& window = *View(ChartCanvas)->window();
        QTest::mouseMove(window.windowHandle(), View(ChartCanvas)->mapTo(&window, QPoint(x, y)));
        Run();
    }

    static std::u16string Texts(std::initializer_list<std::int64_t> gadgets) {
        std::u16string texts;
        for (const std::int64_t gadget : gadgets) {
            texts += GetGadgetText(gadget) + u"|";
        }
        return texts;
    }
    // Width and percent height, and "off" when that cannot be entered.
    static std::u16string TyreSize() {
        return Texts({TyreWidthField, PercentHeightField}) +
               (View(PercentHeightField)->isEnabled() ? u"" : u"off");
    }
    // All that a motorcycle sets.
    static std::u16string Motorcycle() {
        return StatusText(TyreWidthField) + u"|" +
               Texts({1, 3, 5, 30, 31, 32, 33, 34, 35, 51, 55, 57, 60});
    }
    static std::u16string Speeds() { return Texts({36, 37, 38, 39, 40, 41}); }
    // A field of the status bar of the window that a gadget lies in, once it has had a text.
    static const QLabel& StatusField(std::int64_t gadget, int field = 0) {
        const QWidget* const content = View(gadget)->parentWidget();
        QList<QLabel*> labels = content->window()->findChildren<QLabel*>();
        labels.removeIf([content](QLabel* label) { return label->parentWidget() == content; });
        return *labels.at(field);
    }
    static std::u16string StatusText(std::int64_t gadget, int field = 0) {
        return StatusField(gadget, field).text().toStdU16String();
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

    const TemporaryFolder folder;
    const std::string file = folder.File("Rotavel.ini");
    Program program;
};

}  // namespace rotavel::tests
