#include <X11/Xlib.h>
#include <X11/extensions/Xdamage.h>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <poll.h>
#include <set>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

// Measures programs from outside, on a display with a window manager: the X server tells when
// their windows are painted, /proc what they cost. Mouse and keys are xdotool's.
//
//   window_clock start COUNT PROGRAM...  starts the programs by turns
//   window_clock chart COUNT PROGRAM     opens and closes Rotavel's chart, moves over it, rests

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Times = std::vector<double>;

constexpr int SmallestSide = 80;     // of a window that counts
constexpr int SmallestPaint = 8000;  // pixels; the blinking cursor does not count
constexpr auto Quiet = 300ms;        // without a paint: all is painted
constexpr auto Patience = 10s;

// The middle of the "Graphic" button, from the lower left corner of the main window.
constexpr int GraphicRight = 170;
constexpr int GraphicUp = 70;

double Milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

struct Paint {
    Window Painted = None;
    Clock::time_point When;
};

class Screen {
  public:
    Screen() : display(XOpenDisplay(nullptr)) {
        int error = 0;
        if (display == nullptr || XDamageQueryExtension(display, &damageEvent, &error) == 0) {
            std::fputs("window_clock: no display with the DAMAGE extension\n", stderr);
            std::exit(1);
        }
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });  // windows go at any time
        XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
        XSync(display, False);
    }
    ~Screen() { XCloseDisplay(display); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    // Waits for a paint of at least this many pixels.
    bool NextPaint(Clock::time_point until, Paint& paint, int pixels) {
        for (;;) {
            while (XPending(display) > 0) {
                XEvent event;
                XNextEvent(display, &event);
                if (event.type == MapNotify) {
                    Watch(event.xmap.window);
                } else if (event.type == UnmapNotify) {
                    shown.erase(event.xunmap.window);
                } else if (event.type == damageEvent + XDamageNotify) {
                    XDamageNotifyEvent damage;
                    std::memcpy(&damage, &event, sizeof damage);
                    if (damage.area.width * damage.area.height >= pixels) {
                        paint = {damage.drawable, Clock::now()};
                        return true;
                    }
                }
            }
            const auto rest = until - Clock::now();
            if (rest <= 0s) {
                return false;
            }
            pollfd readable{ConnectionNumber(display), POLLIN, 0};
            poll(&readable, 1, static_cast<int>(Milliseconds(rest)) + 1);
        }
    }

    // Waits until nothing was painted for a while.
    void Rest(Clock::duration quiet = Quiet) {
        for (Paint paint; NextPaint(Clock::now() + quiet, paint, 1);) {
        }
    }

    // Waits for a window that was not there and returns the last paint of it.
    Paint NewWindow() {
        const auto before = shown;
        Paint last;
        Paint paint;
        for (auto until = Clock::now() + Patience; NextPaint(until, paint, SmallestPaint);) {
            if (before.count(paint.Painted) == 0) {
                last = paint;
                until = paint.When + Quiet;
            }
        }
        if (last.Painted == None) {
            std::fputs("window_clock: no window came\n", stderr);
            std::exit(1);
        }
        return last;
    }
    bool IsShown(Window window) const { return shown.count(window) != 0; }
    const XWindowAttributes& Place(Window window) { return shown[window]; }
    int CountWindows() const { return CountBelow(DefaultRootWindow(display)); }

  private:
    void Watch(Window window) {
        XWindowAttributes place;
        if (XGetWindowAttributes(display, window, &place) != 0 &&
            std::min(place.width, place.height) >= SmallestSide) {
            if (watched.insert(window).second) {
                XDamageCreate(display, window, XDamageReportRawRectangles);
            }
            XSync(display, False);
            shown[window] = place;
        }
    }
    int CountBelow(Window window) const {
        Window root = None;
        Window* children = nullptr;
        unsigned count = 0;
        if (XQueryTree(display, window, &root, &root, &children, &count) == 0) {
            return 0;
        }
        int all = static_cast<int>(count);
        for (unsigned i = 0; i < count; ++i) {
            all += CountBelow(children[i]);
        }
        XFree(children);
        return all;
    }

    Display* display;
    int damageEvent = 0;
    std::map<Window, XWindowAttributes> shown;
    std::set<Window> watched;
};

class Program {
  public:
    explicit Program(const char* path) : id(fork()) {
        if (id == 0) {
            execl(path, path, nullptr);
            _exit(127);
        }
        clock_getcpuclockid(id, &clock);
    }
    ~Program() {
        kill(id, SIGTERM);
        waitpid(id, nullptr, 0);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    double CpuMilliseconds() const {
        timespec time{};
        clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }
    double ResidentMegabytes() const {
        return static_cast<double>(Figure(Proc() / "smaps_rollup", "Rss:")) / 1024;
    }
    long Wakeups() const {
        long count = 0;
        for (const auto& task : std::filesystem::directory_iterator(Proc() / "task")) {
            count += Figure(task.path() / "status", "voluntary_ctxt_switches:");
        }
        return count;
    }
    long CountDescriptors() const {
        return std::distance(std::filesystem::directory_iterator(Proc() / "fd"), {});
    }

  private:
    std::filesystem::path Proc() const { return "/proc/" + std::to_string(id); }
    static long Figure(const std::filesystem::path& path, const char* name) {
        std::ifstream file(path);
        long figure = 0;
        for (std::string word; file >> word;) {
            if (word == name) {
                file >> figure;
            }
        }
        return figure;
    }

    pid_t id;
    clockid_t clock{};
};

void Print(const char* what, Times times) {
    std::sort(times.begin(), times.end());
    std::printf("  %-36s least %8.2f  median %8.2f  most %8.2f\n", what, times.front(),
                times[times.size() / 2], times.back());
}

void MeasureStart(int count, const std::vector<const char*>& paths) {
    struct Figures {
        Times Paint, Cpu, Resident;
    };
    std::vector<Figures> figures(paths.size());
    for (int i = 0; i < count; ++i) {
        for (std::size_t path = 0; path < paths.size(); ++path) {
            Screen screen;
            const auto begin = Clock::now();
            const Program program(paths[path]);
            figures[path].Paint.push_back(Milliseconds(screen.NewWindow().When - begin));
            figures[path].Cpu.push_back(program.CpuMilliseconds());
            figures[path].Resident.push_back(program.ResidentMegabytes());
        }
    }
    for (std::size_t path = 0; path < paths.size(); ++path) {
        std::printf("%s\n", paths[path]);
        Print("start to painted window, ms", figures[path].Paint);
        Print("processor time of it, ms", figures[path].Cpu);
        Print("resident memory, MiB", figures[path].Resident);
    }
}

class ChartClock {
  public:
    explicit ChartClock(const char* path) : hands(popen("xdotool -", "we")), program(path) {
        mainWindow = screen.NewWindow().Painted;
    }
    ~ChartClock() { pclose(hands); }
    ChartClock(const ChartClock&) = delete;
    ChartClock& operator=(const ChartClock&) = delete;

    void OpenAndClose(int count) {
        Times wall;
        Times cpu;
        PrintHoldings("before the first chart");
        for (int i = 1; i <= count; ++i) {
            Open(wall, cpu);
            Do("key alt+F4");
            while (screen.IsShown(chart)) {
                screen.Rest(1ms);
            }
            screen.Rest(50ms);
            if (i % std::max(count / 5, 1) == 0) {
                PrintHoldings("after " + std::to_string(i));
            }
        }
        std::printf("  %-36s %14.2f\n", "the first click, ms", wall.front());
        Print("click to painted chart, ms", wall);
        Print("processor time of it, ms", cpu);
    }

    void MoveOverChart() {
        Times ignored;
        Open(ignored, ignored);
        const XWindowAttributes place = screen.Place(chart);
        Times wall;
        const double before = program.CpuMilliseconds();
        for (int i = 0; i < Moves; ++i) {
            Paint paint;
            const auto begin = Clock::now();
            Point(place.x + 100 + i % 400, place.y + 150 + i / 20);
            if (screen.NextPaint(begin + 200ms, paint, SmallestPaint)) {
                wall.push_back(Milliseconds(paint.When - begin));
            }
            screen.Rest(1ms);
        }
        std::printf("  %-36s %14.3f\n", "processor time of a move, ms",
                    (program.CpuMilliseconds() - before) / Moves);
        Print("move to painted magnifier, ms", wall);
    }

    void Idle(const char* what) {
        screen.Rest();
        const long before = program.Wakeups();
        const double cpu = program.CpuMilliseconds();
        std::this_thread::sleep_for(10s);
        std::printf("  %-36s %ld wake-ups, %.2f ms of processor time\n", what,
                    program.Wakeups() - before, program.CpuMilliseconds() - cpu);
    }

  private:
    static constexpr int Moves = 3000;

    void Do(const std::string& command) {
        std::fprintf(hands, "%s\n", command.c_str());
        std::fflush(hands);
    }
    void Point(int x, int y) { Do("mousemove " + std::to_string(x) + " " + std::to_string(y)); }

    void Open(Times& wall, Times& cpu) {
        const XWindowAttributes place = screen.Place(mainWindow);
        Point(place.x + GraphicRight, place.y + place.height - GraphicUp);
        Do("mousedown 1");
        screen.Rest(100ms);
        const double before = program.CpuMilliseconds();
        const auto begin = Clock::now();
        Do("mouseup 1");
        const Paint paint = screen.NewWindow();
        chart = paint.Painted;
        wall.push_back(Milliseconds(paint.When - begin));
        cpu.push_back(program.CpuMilliseconds() - before);
    }
    void PrintHoldings(const std::string& when) {
        std::printf("  %-36s %.2f MiB, %d windows, %ld descriptors\n", when.c_str(),
                    program.ResidentMegabytes(), screen.CountWindows(), program.CountDescriptors());
        std::fflush(stdout);
    }

    FILE* hands;
    Screen screen;
    const Program program;
    Window mainWindow = None;
    Window chart = None;
};

void MeasureChart(int count, const char* path) {
    std::printf("%s\n", path);
    ChartClock clock(path);
    clock.Idle("10 s with the main window");
    clock.OpenAndClose(count);
    clock.MoveOverChart();
    clock.Idle("10 s with the chart");
}

}  // namespace

int main(int argc, char** argv) {
    const int count = argc > 3 ? std::atoi(argv[2]) : 0;
    if (count > 0 && std::strcmp(argv[1], "start") == 0) {
        MeasureStart(count, {argv + 3, argv + argc});
    } else if (count > 0 && std::strcmp(argv[1], "chart") == 0) {
        MeasureChart(count, argv[3]);
    } else {
        std::fputs("usage: window_clock start|chart COUNT PROGRAM...\n", stderr);
        return 1;
    }
    return 0;
}
