#pragma once

#include <string>
#include <vector>

#include <QLabel>

#include "app/current_motorcycle.h"
#include "app/main_loop.h"
#include "app/main_window.h"
#include "app/settings_group.h"
#include "gui/font.h"
#include "gui/gadget.h"
#include "gui/status_bar.h"
#include "gui/window.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"
#include "settings/settings_flags.h"
#include "settings/settings_store.h"
#include "tests/support/pixels.h"
#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel::tests {

// The program from its settings file to its main loop, with a file of the test's own.
class AppTest : public DrawTest {
  protected:
    void TearDown() override {
        SettingsClose();
        ForgetCurrentMotorcycle();
        DrawTest::TearDown();
    }

    void Start(const std::string& settings) {
        SettingsClose();
        WriteFile(file, settings);
        ASSERT_TRUE(SettingsOpen(ToUtf16(file), GroupSpacing));
        makers = ReadMotorcycles();
        SettingsSelectGroup(u"Settings");
        FontLoad(ProgramFont, u"Arial", 8);
        OpenMainWindow(makers);
        RestoreLastValues();
        StatusBarCreate(MainStatusBar, WindowNativeHandle(MainWindow));
        StatusBarAddField(WindowGetWidth(MainWindow) - 5);
        ShowCurrentMotorcycle();
        ForgetEvents();
    }

    // Lets the program do what the input so far asks for, and its windows come and go.
    void Run() const {
        PostProgramEvent(CloseRequested, MainWindow);
        RunMainLoop(makers);
        ForgetEvents();
    }
    void Push(std::int64_t button) const {
        Click(button);
        Run();
    }
    // What a window's status bar shows in a field.
    static std::u16string StatusText(std::int64_t window, std::size_t field = 0) {
        std::vector<std::u16string> texts;
        for (const QLabel* const label : Native(window)->findChildren<QLabel*>()) {
            if (label->parentWidget() != Native(window)->ContentView()) {
                texts.push_back(label->text().toStdU16String());
            }
        }
        return field < texts.size() ? texts[field] : u"";
    }

    const TemporaryFolder folder;
    const std::string file = folder.File("Rotavel.ini");
    std::vector<MakerRecord> makers;
};

}  // namespace rotavel::tests
