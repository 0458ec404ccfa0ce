#include "platform/wx/application.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

#include <exception>
#include <stdexcept>
#include <utility>

#include "platform/desktop.h"
#include "platform/wx/gtkFunction.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

void report(const RunTimeError& error) {
    const std::string file = error.path().empty() ? std::string() : "\r\n'" + error.path() + "'";
    const std::string text = error.isOfWriting() ? error.reportWhileLoading({}) : error.report(file);
    desktop().showMessage(text, errorTitle, Icon::critical);
}

class Application : public wxApp {
  public:
    explicit Application(std::function<void()> start) : start_(std::move(start)) {}

    bool OnInit() override {
        delete wxLog::SetActiveTarget(nullptr);  // messages have windows from here on
        SetAppName("brasquelin");
        SetAppDisplayName("Brasquelin");
        SetExitOnFrameDelete(false);
        CallAfter([this] { start_(); });
        return true;
    }

    /// The program's texts are English. To ask the locale would load the toolkit's table of all languages at each
    /// start.
    wxLayoutDirection GetLayoutDirection() const override { return wxLayout_LeftToRight; }

    /// Windows calls this from inside its own message functions, which no exception can pass.
    void ProcessPendingEvents() override {
        try {
            wxApp::ProcessPendingEvents();
        } catch (...) {
            WXConsumeException();
        }
    }

    int OnRun() override {
        try {
            const int status = wxApp::OnRun();
            Application::RethrowStoredException();
            return status;
        } catch (const EndProgram& end) {
            return end.exitStatus();
        }
    }

    bool OnExceptionInMainLoop() override {
        try {
            throw;
        } catch (const std::logic_error& error) {
            desktop().showMessage(error.what(), errorTitle, Icon::critical);
        } catch (const std::exception&) {
            report(currentRunTimeError());
        }
        return true;
    }

    /// The first exception counts: what is thrown while it unwinds the loops only follows from it.
    bool StoreCurrentException() override {
        if (!stored_) stored_ = std::current_exception();
        return true;
    }

    void RethrowStoredException() override {
        if (stored_) std::rethrow_exception(std::exchange(stored_, nullptr));
    }

  private:
    std::function<void()> start_;
    std::exception_ptr stored_;
};

/// The configuration of the fonts is read by a thread of the font library's, beside all that shows no text yet. Without
/// this it begins with the first text, which then waits.
void beginReadingFonts() {
#ifdef __WXGTK__
    if (auto* fontMap = gtkFunction<void*()>("pango_cairo_font_map_get_default")) fontMap();
#endif
}

}  // namespace

int runApplication(std::function<void()> start) {
    beginReadingFonts();
    wxApp::SetInstance(new Application(std::move(start)));
    char name[] = "brasquelin";
    char* arguments[] = {name, nullptr};
    int count = 1;
    // A display that cannot be opened shows no message. The toolkit owns what it is given.
    delete wxLog::SetActiveTarget(new wxLogStderr);  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
    const int status = wxEntry(count, arguments);
    return status < 0 ? 1 : status;
}

void rethrowFromEvents() {
    if (wxTheApp) wxTheApp->RethrowStoredException();
}

}  // namespace brasquelin
