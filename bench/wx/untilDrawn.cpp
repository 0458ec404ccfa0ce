// Prints the microseconds from the start of a program until it has drawn in its window, and ends the program.
// Usage: untilDrawn TITLE PROGRAM [ARGUMENT...]
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xdamage.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto longest = std::chrono::seconds(20);

bool hasTitle(Display* display, Window window, const char* title) {
    XTextProperty name{};
    if (XGetWMName(display, window, &name) == 0) return false;
    const bool same = std::strcmp(reinterpret_cast<const char*>(name.value), title) == 0;
    XFree(name.value);
    return same;
}

/// Without a window manager each window of a program is a child of the root. The first report is of the whole window as
/// the server shows it, with nothing in it; the next is of what the program draws.
bool waitUntilDrawn(Display* display, const char* title) {
    int damageEvents = 0;
    int errors = 0;
    if (XDamageQueryExtension(display, &damageEvents, &errors) == 0) return false;
    int reports = 0;
    const auto giveUp = Clock::now() + longest;
    while (Clock::now() < giveUp) {
        if (XPending(display) == 0) {
            pollfd waiting{ConnectionNumber(display), POLLIN, 0};
            poll(&waiting, 1, 100);
            continue;
        }
        XEvent event;
        XNextEvent(display, &event);
        if (event.type == damageEvents + XDamageNotify && ++reports == 2) return true;
        if (event.type == MapNotify && hasTitle(display, event.xmap.window, title)) {
            XDamageCreate(display, event.xmap.window, XDamageReportRawRectangles);
        }
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    Display* display = XOpenDisplay(nullptr);
    if (argc < 3 || !display) return 2;
    // A window that has closed since is no reason to end.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    XSync(display, False);
    const auto begin = Clock::now();
    pid_t program = 0;
    if (posix_spawn(&program, argv[2], nullptr, nullptr, argv + 2, environ) != 0) return 2;
    const bool drawn = waitUntilDrawn(display, argv[1]);
    const auto taken = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin);
    kill(program, SIGKILL);
    waitpid(program, nullptr, 0);
    if (!drawn) return 1;
    std::printf("%lld\n", static_cast<long long>(taken.count()));
}
