#include "gui/application.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <QIcon>
#include <QThread>
#include <QTimer>
#include <QtGlobal>

#include "gui/application/qz_application.h"
#include "gui/application/termination_signals.h"
#include "gui/events/event_posting.h"
#include "gui/font.h"
#include "gui/gadget.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/menu.h"
#include "gui/menus/menu_bars.h"
#include "gui/numbers.h"
#include "gui/toolkit/kept_input.h"
#include "gui/toolkit/native_events.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/window.h"
#include "gui/windows/qz_window.h"

// The toolkit's macro names a function of no namespace.
static void LoadIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace rotavel {

namespace {

// Left alone by a program that ends without GuiStop: at exit the toolkit's own globals go first.
QzApplication* application = nullptr;

QtMessageHandler standardHandler = nullptr;

constexpr unsigned long SavingSeconds = 5;

// The toolkit ends a program that finds no display as if it had crashed, with a page of advice for
// its makers. The user gets one line, and whoever started the program a status.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type == QtFatalMsg) {
        std::fputs("Rotavel: no display answers\n", stderr);
        std::_Exit(EXIT_FAILURE);
    }
}

// The toolkit's Wayland platform ends a program whose compositor has gone as soon as one of its
// threads finds out, without what the program has left to do at its exit.
void ExitWithoutCompositor(QtMsgType type, const QMessageLogContext& context,
                           const QString& message) {
    standardHandler(type, context, message);
    if (message.startsWith("The Wayland connection")) {
        QMetaObject::invokeMethod(application, [] { std::exit(EXIT_FAILURE); });
        QThread::sleep(SavingSeconds);  // another thread, which would end the program now
    }
}

QIcon ProgramIcon() {
    LoadIcons();
    QIcon icon;
    for (const char* const side : {"16", "32", "48"}) {
        icon.addFile(QString(":/icons/%1.png").arg(side));
    }
    return icon;
}

}  // namespace

void GuiStart() {
    // The program has no command line, so the toolkit gets to see none either.
    static std::array<char, 8> name = {"Rotavel"};
    static std::array<char*, 2> arguments = {name.data(), nullptr};
    static int argumentCount = 1;
    // The desktop entry, by which some desktops find name and icon; the others get the icon itself.
    QGuiApplication::setDesktopFileName("Rotavel");
    standardHandler = qInstallMessageHandler(EndWithoutDisplay);
    application = new QzApplication(argumentCount, arguments.data());
    qInstallMessageHandler(ExitWithoutCompositor);
    // While the window system maps the first window there is time to read pictures.
    QTimer::singleShot(0, application, [] { QApplication::setWindowIcon(ProgramIcon()); });
    SetWakeHook(&WakeNativeLoop);
    SetKeyboardHook([] {
        const QzWindow* const chosen = QzWindow::ChosenKeyWindow();
        return chosen == nullptr ? nullptr : chosen->windowHandle();
    });
    // Gadgets go before the menus of a window that closes.
    WindowObservers() = {&GadgetsAsObserver(), &MenuBars::Shared()};
    CatchTerminationSignals();
}

void GuiStop() {
    ReleaseEventQueue();  // no binding is to run from here on
    WindowDestroy(AnyNumber);
    FreeGadget(AnyNumber);
    FreeMenu(AnyNumber);
    FreeFont(AnyNumber);
    DeleteRetiredObjects();
    ReleaseTerminationSignals();
    ReleaseEventQueue();
    SetWakeHook(nullptr);
    qInstallMessageHandler(nullptr);
    delete std::exchange(application, nullptr);
}

}  // namespace rotavel
