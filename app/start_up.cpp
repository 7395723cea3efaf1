#include "app/start_up.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "app/current_motorcycle.h"
#include "app/default_settings.h"
#include "app/last_values.h"
#include "app/main_loop.h"
#include "app/main_window.h"
#include "app/motorcycle_records.h"
#include "draw/image.h"
#include "gui/application.h"
#include "gui/event_queue.h"
#include "gui/font.h"
#include "gui/gadget.h"
#include "gui/numbers.h"
#include "gui/requester.h"
#include "gui/status_bar.h"
#include "gui/window.h"
#include "runtime/raw_file.h"
#include "settings/program_location.h"
#include "settings/settings_store.h"
#include "text/number_text.h"
#include "text/utf.h"

namespace rotavel {

namespace {

constexpr double ProgramFontPoints = 8;

// A missing file is made without a word. One that is there and cannot be opened stays as it is, and
// opening it for the run tells.
void WriteDefaultSettingsIfMissing(const std::u16string& path) {
    if (SettingsOpenDefault(path)) {
        SettingsClose();
        return;
    }
    RawFile().Create(ToUtf8(path), DefaultSettingsText);
}

void CloseSettings(const std::u16string& path) {
    SettingsClose();
    if (const int error = SettingsSaveError()) {
        std::fprintf(stderr, "%s: %s\n", ToUtf8(path).c_str(), std::strerror(error));
    }
}

void AddStatusBar() {
    StatusBarCreate(MainStatusBar, WindowNativeHandle(MainWindow));
    StatusBarAddField(WindowGetWidth(MainWindow) - StatusBarMargin);
    ShowCurrentMotorcycle();
}

void OpenWithSettings(Program& program) {
    program.Makers = ReadMotorcycles();
    FontLoad(ProgramFont, u"Arial", ProgramFontPoints);
    SetGadgetFont(AnyNumber, ProgramFont);
    OpenMainWindow(program.Makers);
    RestoreLastValues();
    // Lets the percent field be enabled or disabled to suit the restored width.
    PostProgramEvent(GadgetActivity, MainWindow, TyreWidthField, Change);
    AddStatusBar();
    ActivateGadget(TyreWidthField);
}

const Program* running = nullptr;  // until its values are saved

// When its display is lost the toolkit ends the process at once.
void SaveAtExit() {
    if (const Program* const program = std::exchange(running, nullptr)) {
        ShutDown(*program);
    }
}

}  // namespace

std::u16string SettingsPath(std::u16string_view executable) {
    std::u16string path(DirectoryPart(executable));
    path += u"../Resources/";
    path += FilePart(executable, 0);
    path += u".ini";
    return path;
}

bool StartUp(Program& program, const std::u16string& settingsPath) {
    SetUpLocale();  // after the toolkit, which takes the decimal point from the user's locale
    WriteDefaultSettingsIfMissing(settingsPath);
    if (!SettingsOpen(settingsPath, GroupSpacing)) {
        SettingsClose();
        MessageRequester(u"Error", u"No ini file found");
        return false;
    }
    program.SettingsPath = settingsPath;
    OpenWithSettings(program);
    return true;
}

void ShutDown(const Program& program) {
    SaveLastValues();
    CloseSettings(program.SettingsPath);
    ImageFree(AnyNumber);
}

int RunProgram() {
    std::signal(SIGXFSZ, SIG_IGN);  // a save beyond the user's limit is one that fails, no more
    GuiStart();
    BringToFront();
    EnterBundleContents();
    Program program;
    if (StartUp(program, SettingsPath(ProgramFilename()))) {
        running = &program;
        std::atexit(SaveAtExit);
        RunMainLoop(program);
        running = nullptr;
        ShutDown(program);
    }
    GuiStop();
    return 0;
}

}  // namespace rotavel
