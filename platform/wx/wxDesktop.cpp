#include "platform/wx/wxDesktop.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/filedlgcustomize.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/richmsgdlg.h>
#include <wx/textctrl.h>
#include <wx/textdlg.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

#include "platform/fileFilter.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/wx/accessibleNames.h"
#include "platform/wx/application.h"
#include "platform/wx/frmRunning.h"
#include "platform/wx/messageLines.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/placement.h"
#include "platform/wx/programDialog.h"
#include "platform/wx/wxText.h"
#include "text/runTimeError.h"
#include "text/substitution.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

long iconStyle(Icon icon) {
    switch (icon) {
        case Icon::information:
            return wxICON_INFORMATION;
        case Icon::exclamation:
            return wxICON_EXCLAMATION;
        case Icon::critical:
            return wxICON_ERROR;
        case Icon::none:
            break;
    }
    return wxICON_NONE;
}

wxString messageText(std::string_view text) {
    constexpr std::size_t widestLine = 110;
    return brokenIntoLines(toWxLines(text), widestLine);
}

/// Shows a modal dialog; an exception from one of its events continues here.
int showModally(wxDialog& dialog) {
    const int answer = dialog.ShowModal();
    rethrowFromEvents();
    return answer;
}

/// Destroys a window of the program when its modal show is over, however it ended.
class Unloading {
  public:
    explicit Unloading(wxTopLevelWindow& window) : window_(window) {}
    ~Unloading() {
        window_.Hide();
        window_.Destroy();
    }
    Unloading(const Unloading&) = delete;
    Unloading& operator=(const Unloading&) = delete;

  private:
    wxTopLevelWindow& window_;
};

long fileDialogStyle(FileDialogMode mode) {
    return mode == FileDialogMode::open ? wxFD_OPEN | wxFD_FILE_MUST_EXIST : wxFD_SAVE;
}

/// A line of text below the files.
class Note : public wxFileDialogCustomizeHook {
  public:
    explicit Note(std::string_view text) : text_(messageText(text)) {}
    void AddCustomControls(wxFileDialogCustomize& customizer) override { customizer.AddStaticText(text_); }

  private:
    wxString text_;
};

/// The pairs of the filter, for the toolkit, which proposes a pattern's end for a name that is to be saved.
wxString patternsOf(const FileDialogRequest& request) {
    const std::string pairs = fileFilter(request.filter, fromWx(wxFileSelectorDefaultWildcardStr));
#ifdef __WXGTK__
    if (request.mode == FileDialogMode::open) return toWx(inEitherCase(pairs));
#endif
    return toWx(pairs);
}

/// The directory itself or the nearest one above it that exists.
std::string existingDirectory(std::string path) {
    while (!path.empty() && !directoryExists(path)) path = dirOf(path);
    return path;
}

}  // namespace

bool WxDesktop::isLoaded(const wxTopLevelWindow* window) {
    return window && !wxPendingDelete.Member(const_cast<wxTopLevelWindow*>(window));
}

void WxDesktop::showModeless(wxTopLevelWindow& window) {
    nameControlsByLabels(window);
    window.Show();
    window.Raise();
    window.CallAfter([&window] { window.Raise(); });  // some window managers heed only one that is up
}

void WxDesktop::showUntilClosed(wxDialog& window) {
    std::function<void()> lastStep;
    {
        const Unloading unloading(window);
        nameControlsByLabels(window);
        showModally(window);
        if (auto* dialog = dynamic_cast<ProgramDialog*>(&window)) lastStep = dialog->takeLastStep();
    }
    if (lastStep) lastStep();
}

void WxDesktop::unload(wxTopLevelWindow& window) {
    if (window.IsShown()) {
        window.Close(true);
        rethrowFromEvents();
    } else {
        window.Destroy();
    }
}

void WxDesktop::showRunning(const std::string& what, std::function<void()> cancel) {
    hideRunning();
    running_ = new FrmRunning(what, std::move(cancel));
    showModeless(*running_);
}

/// Called while exceptions pass, too: nothing of this can throw.
void WxDesktop::hideRunning() {
    if (!isLoaded(running_)) return;
    running_->Hide();
    running_->Destroy();
}

void WxDesktop::presentMessage(std::string_view text, std::string_view title, Icon icon) {
    wxRichMessageDialog box(newestWindow(), messageText(text), toWx(title), wxOK | iconStyle(icon));
    keepCentred(box);
    showModally(box);
}

bool WxDesktop::askYesNo(std::string_view text, std::string_view title) {
    // The box of Windows itself can be left by its buttons only.
    wxGenericRichMessageDialog box(newestWindow(), messageText(text), toWx(title),
                                   wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION);
    box.SetEscapeId(wxID_NO);  // for the close box, too
    keepCentred(box);
    return showModally(box) == wxID_YES;
}

std::optional<std::string> WxDesktop::askText(std::string_view prompt, std::string_view title,
                                              std::string_view defaultText) {
    return askInBox(prompt, title, defaultText, false);
}

std::optional<std::string> WxDesktop::askEdit(std::string_view prompt, std::string_view title, std::string_view line) {
    return askInBox(prompt, title, line, true);
}

std::optional<std::string> WxDesktop::askInBox(std::string_view prompt, std::string_view title,
                                               std::string_view defaultText, bool edits) {
    constexpr int width = 500;
    std::string text(defaultText);
    wxTextEntryDialog box(newestWindow(), messageText(prompt), toWx(title), toWx(visibleText(text)));
    for (auto* part : box.GetChildren()) {
        auto* line = dynamic_cast<wxTextCtrl*>(part);
        if (!line) continue;
        keepExact(*line, text);
        line->SetMinSize(wxSize(line->FromDIP(width), -1));
        // The focus selects it all.
        if (edits) line->CallAfter([line] { line->SetInsertionPointEnd(); });
    }
    box.Fit();
    keepCentred(box);
    if (showModally(box) != wxID_OK) return std::nullopt;
    return text;
}

/// The dialog's own question about an existing file does not know the extension that is added behind it.
std::string WxDesktop::askFile(const FileDialogRequest& request) {
    FileDialogRequest next = request;
    for (;;) {
        const ChosenFile chosen = chooseFile(next);
        if (request.mode == FileDialogMode::open || chosen.path.empty()) return chosen.path;
        std::string path = withExtension(chosen.path, request.filter, chosen.filterIndex);
        if (!fileExists(path) || askYesNo("'" + path + "' exists already. Replace it?", "Brasquelin")) return path;
        next.startName = std::move(path);
    }
}

WxDesktop::ChosenFile WxDesktop::chooseFile(const FileDialogRequest& request) {
    const std::string start = resolvePath(request.startName);
    wxFileDialog dialog(newestWindow(), toWx(request.title), toWx(existingDirectory(dirOf(start))),
                        toWx(fileNameOf(start)), patternsOf(request), fileDialogStyle(request.mode));
    Note note(request.note);
    if (!request.note.empty()) dialog.SetCustomizeHook(note);
    if (showModally(dialog) != wxID_OK) return {};
    return {fromWx(dialog.GetPath()), static_cast<std::size_t>(std::max(0, dialog.GetFilterIndex()))};
}

void WxDesktop::copyToClipboard(std::string_view text) {
    const wxClipboardLocker lock;
    if (!lock) return;
    wxTheClipboard->SetData(new wxTextDataObject(toWx(text)));
    wxTheClipboard->Flush();  // outlives the program
}

std::string WxDesktop::clipboardText() {
    const wxClipboardLocker lock;
    if (!lock) return {};
#ifdef __WXGTK__
    // The bytes as they come: there and back through the toolkit's strings takes as long again.
    if (wxCustomDataObject utf8(wxDF_UNICODETEXT); wxTheClipboard->GetData(utf8)) {
        return {static_cast<const char*>(utf8.GetData()), utf8.GetSize()};
    }
#endif
    wxTextDataObject text;
    if (!wxTheClipboard->GetData(text)) return {};
    return fromWx(text.GetText());
}

void WxDesktop::openLink(std::string_view target) {
    const bool link = target.starts_with("mailto:") || target.find("://") != std::string_view::npos;
    const wxString found = toWx(link ? std::string(target) : resolvePath(target));
    const bool inBrowser = link || target.ends_with(".html");
    const wxLogNull quiet;  // one message is enough
    const bool opened = inBrowser ? wxLaunchDefaultBrowser(found) : wxLaunchDefaultApplication(found);
    if (!opened) showMessage("No program opens '" + std::string(target) + "'.", "Brasquelin", Icon::exclamation);
}

void WxDesktop::processPendingEvents() {
    auto* loop = wxEventLoopBase::GetActive();
    if (loop && !loop->IsYielding()) loop->YieldFor(wxEVT_CATEGORY_ALL);
    rethrowFromEvents();
}

}  // namespace brasquelin
