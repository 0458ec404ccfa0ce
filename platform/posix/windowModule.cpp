#include "platform/windowModule.h"

#include <dlfcn.h>

#include <stdexcept>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/systemFiles.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

/// In the directory of the program itself.
std::string modulePath() {
    return joinPath(dirOf(executablePath()), "brasquelin-windows.so");
}

std::string whatIsMissing() {
    const std::string cause = dlerror();
    const std::string path = modulePath();
    if (!fileExists(path)) return "The windows are not part of this installation ('" + path + "' is missing).";
    return "The windows need wxWidgets 3.2 for GTK 3, which is not installed (Debian's package libwxgtk3.2-1): " +
           cause;
}

/// Loaded once and kept to the end.
struct WindowModule {
    void* handle = dlopen(modulePath().c_str(), RTLD_LAZY);
    std::string missing = handle == nullptr ? whatIsMissing() : std::string();
};

const WindowModule& windowModule() {
    static const WindowModule module;
    return module;
}

}  // namespace

std::string whyNoWindows() {
    if (!displayAvailable()) return "The windows need a display, and there is none (DISPLAY is not set).";
    return windowModule().missing;
}

int runWithWindows(const std::string& commandLine) {
    void* const symbol = dlsym(windowModule().handle, "brasquelinWindows");
    if (symbol == nullptr) throw std::runtime_error("'" + modulePath() + "' belongs to another version.");
    return reinterpret_cast<decltype(&brasquelinWindows)>(symbol)(commandLine.c_str());
}

}  // namespace brasquelin
