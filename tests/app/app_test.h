#pragma once

#include <cstdlib>
#include <string>

#include <QLabel>
#include <QTest>
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

inline constexpr std::int64_t ChartCanvas = 63;

// A screen that charts fit on, in place of the small one that the toolkit makes up.
[[maybe_unused]] inline const int largeScreen =
    setenv("ROTAVEL_TEST_PLATFORM", "offscreen:configfile=" APP_TESTS_FOLDER "/screen.json", 0);

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
            Serve();
        }
        ForgetEvents();
    }
    // The same without dropping what comes later.
    void Serve() {
        QCoreApplication::processEvents();
        PostProgramEvent(CloseRequested, MainWindow);
        RunMainLoop(program);
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

    const TemporaryFolder folder;
    const std::string file = folder.File("Rotavel.ini");
    Program program;
};

}  // namespace rotavel::tests
