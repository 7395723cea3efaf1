#include "gui/application/termination_signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

#include <QSocketNotifier>

#include "gui/event_queue.h"
#include "gui/menus/message_box.h"

namespace rotavel {

namespace {

constexpr std::array<int, 3> TerminationSignals = {SIGINT, SIGTERM, SIGHUP};

// A handler may do little more than write, so the signal travels through a pipe to the event loop.
std::array<int, 2> signalPipe = {-1, -1};
std::unique_ptr<QSocketNotifier> notifier;

void OnSignal(int) {
    const int savedErrno = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
    errno = savedErrno;
}

void SetHandlers(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signal : TerminationSignals) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        // A signal that was ignored from the start (nohup) stays ignored.
        if (before.sa_handler != SIG_IGN) {
            sigaction(signal, &action, nullptr);
        }
    }
}

}  // namespace

void CatchTerminationSignals() {
    if (pipe(signalPipe.data()) != 0) {
        return;
    }
    for (const int end : signalPipe) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [] {
        std::array<char, 16> bytes{};
        while (read(signalPipe[0], bytes.data(), bytes.size()) > 0) {
        }
        PostProgramEvent(CloseRequested, 0, 0);
        DismissMessageBoxes();
    });
    SetHandlers(OnSignal);
}

void ReleaseTerminationSignals() {
    SetHandlers(SIG_DFL);
    notifier.reset();
    for (int& end : signalPipe) {
        if (end >= 0) {
            close(end);
        }
        end = -1;
    }
}

}  // namespace rotavel
