#include "tests/support/gui_test.h"

#include <map>
#include <memory>
#include <utility>

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>

#include "gui/application.h"
#include "gui/event_loop.h"
#include "gui/events/event_posting.h"
#include "gui/font.h"
#include "gui/gadget.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/toolkit/handle.h"
#include "gui/window.h"
#include "gui/windows/window_record.h"

namespace rotavel::tests {

namespace {

constexpr std::uint32_t Answered = FirstUnmergedKind + 1000;
constexpr std::int64_t PatienceMs = 2000;

// A window that is never shown. It is the window manager that moves it on request, and requests are
// granted one after the other: once this one is, so are those before it.
std::unique_ptr<QWindow> messenger;
bool isAnswered = true;

class Toolkit final : public testing::Environment {
  public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM",
                qEnvironmentVariable("ROTAVEL_TEST_PLATFORM", "offscreen").toUtf8());
        GuiStart();
        if (QGuiApplication::platformName() == "xcb") {
            messenger = std::make_unique<QWindow>();
            messenger->create();
            QObject::connect(messenger.get(), &QWindow::xChanged, [] {
                isAnswered = true;
                PostProgramEvent(Answered);
            });
        }
    }
    void TearDown() override {
        messenger.reset();
        GuiStop();
    }
};

[[maybe_unused]] const testing::Environment* const toolkit =
    testing::AddGlobalTestEnvironment(new Toolkit);

using Names = std::map<std::uint32_t, const char*>;

const Names inputNames = {{MenuChosen, "Menu"},      {CloseRequested, "Close"},
                          {GadgetActivity, "Press"}, {RightClick, "RightClick"},
                          {LeftClick, "Click"},      {LeftDoubleClick, "DoubleClick"}};
const Names geometryNames = {{WindowMoved, "Moved"},
                             {WindowResized, "Resized"},
                             {WindowMaximized, "Maximized"},
                             {WindowRestored, "Restored"}};
const Names typeNames = {{Focus, "Focus"}, {LostFocus, "LostFocus"}, {Change, "Change"}};

std::string TakenOf(const Names& names) {
    std::string taken;
    // What comes of one turn may leave something for the next.
    for (int quietTurns = 0; quietTurns < 2;) {
        if (messenger != nullptr && std::exchange(isAnswered, false)) {
            messenger->setX(1 - messenger->x());
        }
        const std::int64_t kind = WaitForEvent(messenger == nullptr ? 0 : PatienceMs);
        quietTurns = kind == Answered || kind == 0 ? quietTurns + 1 : 0;
        const auto name = names.find(CurrentEventKind());
        if (kind <= 0 || name == names.end()) {
            continue;
        }
        const auto typeName = typeNames.find(static_cast<std::uint32_t>(CurrentEventType()));
        taken.append(taken.empty() ? "" : ", ");
        taken.append(typeName == typeNames.end() ? name->second : typeName->second);
        taken.append(" ").append(std::to_string(CurrentEventObject()));
        if (CurrentEventWindow() != 0 && (kind == MenuChosen || kind == GadgetActivity)) {
            taken.append("@").append(std::to_string(CurrentEventWindow()));
        }
    }
    return taken;
}

std::string Outline(const QList<QAction*>& actions) {
    std::string outline;
    for (const QAction* const action : actions) {
        outline += action->isSeparator() ? "-" : action->text().toStdString();
        if (action->menu() != nullptr) {
            emit action->menu()->aboutToShow();  // items are made when they are needed
            outline.append("(").append(Outline(action->menu()->actions())).append(")");
        }
        outline += ",";
    }
    return outline;
}

}  // namespace

void GuiTest::TearDown() {
    WindowDestroy(AnyNumber);
    SetGadgetFont(AnyNumber, AnyNumber);
    FreeFont(AnyNumber);
    ForgetEvents();
    ReleaseEventQueue();
}

std::string Taken() {
    return TakenOf(inputNames);
}

std::string TakenGeometry() {
    return TakenOf(geometryNames);
}

void ForgetEvents() {
    TakenOf({});
}

QzWindow* Native(std::int64_t window) {
    return FromHandle(WindowNativeHandle(window));
}

QWidget* View(std::int64_t gadget) {
    const GadgetRecord* const record = GadgetRegistry().Find(gadget);
    return record == nullptr ? nullptr : record->View;
}

std::int64_t KeyWindowNumber() {
    return WindowNumberOf(QApplication::activeWindow());
}

void Press(const char* keys) {
    for (const QString& name : QString(keys).split(' ')) {
        const QKeyCombination key = QKeySequence(name)[0];
        // A window manager that is busy gives a new window the keyboard some time later.
        ASSERT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() != nullptr; }));
        QTest::keyClick(QGuiApplication::focusWindow(), key.key(), key.keyboardModifiers());
    }
}

void Click(std::int64_t gadget) {
    const QWidget& view = *View(gadget);
    QWidget& window = *view.window();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      view.mapTo(&window, view.rect().center()));
}

void AskToClose(std::int64_t window) {
    Native(window)->windowHandle()->close();
}

std::string MenuOutline(std::int64_t window) {
    return Outline(Native(window)->Layout().MenuBar()->actions());
}

}  // namespace rotavel::tests
