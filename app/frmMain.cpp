#include "app/frmMain.h"

#include <wx/accel.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>

#include <array>
#include <string>
#include <utility>

#include "app/dropFiles.h"
#include "app/jobList.h"
#include "app/jobListControl.h"
#include "app/jobListView.h"
#include "app/jobStatus.h"
#include "app/keptJobs.h"
#include "app/startUp.h"
#include "config/configFile.h"
#include "platform/manual.h"
#include "platform/wx/accessibleNames.h"
#include "platform/wx/fileDropTarget.h"
#include "platform/wx/mnemonics.h"
#include "platform/wx/noticeLine.h"
#include "platform/wx/pictures.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/rememberedPlace.h"
#include "platform/wx/wxText.h"
#include "text/text.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

constexpr int firstCommandId = wxID_HIGHEST + 1;

int idOf(const MainCommand& command) {
    return firstCommandId + static_cast<int>(&command - mainCommands().data());
}

void appendCommands(wxMenu& menu) {
    for (const auto& command : mainCommands()) {
        const wxString shortcut = command.shortcut.empty() ? wxString() : "\t" + toWx(command.shortcut);
        menu.Append(idOf(command), toWx(command.caption) + shortcut);
        if (!command.separatorBehind.empty()) menu.AppendSeparator();
    }
}

/// More than that in a box, and it takes seconds.
std::string wholeLine(const std::string& line) {
    constexpr std::size_t mostCharacters = 20'000;
    const std::string_view begin = firstCharacters(line, mostCharacters);
    if (begin.size() == line.size()) return visibleText(line);
    return visibleText(begin) + " ... (" + std::to_string(characterCount(line)) +
           " characters in all; Ctrl+C in the list copies them)";
}

}  // namespace

FrmMain::FrmMain()
    : wxFrame(nullptr, wxID_ANY, "Brasquelin", wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE, "frmMain") {
    SetIcons(programIcons());
    makePlace();
    // The list before the bars: for its size the toolkit would lay out what stands above it.
    JobList_ = new JobListView(this);
    nameForAssistiveTools(*JobList_, "Jobs");
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(JobList_, wxSizerFlags(1).Expand());
    SetSizer(sizer);
    jobs_ = std::make_unique<JobListControl>(*this, *JobList_, *sizer);
    makeMenu();
    makeToolbar();
    makeStatus();
    bindCommands();
    Bind(wxEVT_CLOSE_WINDOW, &FrmMain::closing, this);
    keepTimer_.Bind(wxEVT_TIMER, [](wxTimerEvent&) { keepJobs(); });
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        showChanges();
        if (IsShown() && !hasOffered_) offerKept();
        event.Skip();
    });
    JobList_->Bind(wxEVT_CONTEXT_MENU, &FrmMain::showMenu, this);
    SetDropTarget(
        new FileDropTarget([this](const std::vector<std::string>& paths) { return dropFiles(*this, paths); }));

    JobList_->SetFocus();
}

FrmMain::~FrmMain() {
    place_->save();
    keepJobsSilently();
    leaveKeptJobs();
    jobList.clear();
    jobHistory.clear();
    endLastChild();
}

/// Before the controls, so that none of them is laid out twice.
void FrmMain::makePlace() {
    constexpr int charactersOnToolbar = 125;
    SetMinSize(FromDIP(wxSize(420, 260)));
    wxSize size = FromDIP(wxSize(1060, 560));
    size.IncTo(wxSize(charactersOnToolbar * GetCharWidth(), 0));
    SetSize(size);
    place_ = std::make_unique<RememberedPlace>(*this, "Main");
}

void FrmMain::makeMenu() {
    auto* commands = new wxMenu;
    appendCommands(*commands);
    commands->AppendSeparator();
    jobs_->appendFileCommands(*commands);
    commands->AppendSeparator();
    commands->Append(wxID_EXIT, "Exit\tCtrl+Q");
    auto* help = new wxMenu;
    help->Append(wxID_HELP, "Manual\tF1");
    auto* bar = new wxMenuBar;
    bar->Append(commands, "&Joblist");
    bar->Append(jobs_->makeMenu(), "&Edit");
    bar->Append(help, "&Help");
    giveMnemonics(*bar);
    SetMenuBar(bar);
}

void FrmMain::makeToolbar() {
    constexpr int side = 32;
    auto* toolbar = new wxToolBar(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                  wxTB_HORIZONTAL | wxTB_TEXT | wxTB_FLAT, "Toolbar1");
    for (const auto& command : mainCommands()) {
        toolbar->AddTool(idOf(command), toWx(command.toolbarCaption), picture(command.picture, side),
                         toWx(command.caption));
        if (!command.separatorBehind.empty()) toolbar->AddSeparator();
    }
    toolbar->Realize();
    SetToolBar(toolbar);
}

/// Not before there are lines: the program starts faster without.
void FrmMain::makeLine() {
    constexpr int rows = 3;
    txtLine_ = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_READONLY | wxTE_BESTWRAP, wxDefaultValidator, "txtLine");
    nameForAssistiveTools(*txtLine_, "Selected line");
    JobList_->takeFontOfLines();
    txtLine_->SetFont(JobList_->GetFont());
    txtLine_->SetMargins(FromDIP(2));
    txtLine_->SetMinSize(wxSize(-1, rows * txtLine_->GetCharHeight() + FromDIP(12)));
    GetSizer()->Insert(GetSizer()->GetItemCount() - 1, txtLine_, wxSizerFlags().Expand());
    Layout();
}

/// No status bar of the toolkit: each text that it gets redraws the whole window at once, also while a menu's choice is
/// worked off, and a right click counts twice then.
void FrmMain::makeStatus() {
    auto* line = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE, "statusLine");
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    constexpr std::array<std::pair<const char*, int>, 3> fields{
        {{"lblJobs", 28}, {"lblSelected", 20}, {"lblActivity", 20}}};  // the width in characters
    for (const auto& [name, width] : fields) {
        auto* label = new wxStaticText(line, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                       wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, name);
        label->SetMinSize(wxSize(width * GetCharWidth(), -1));
        row->Add(label, wxSizerFlags().Border());
        status_.push_back(label);
    }
    row->GetItem(status_.back())->SetProportion(1);
    line->SetSizer(row);
    GetSizer()->Add(line, wxSizerFlags().Expand());
    showStatus();
}

void FrmMain::showStatus() {
    const std::array<std::string, 3> texts{jobCountText(jobList.size(), JobList_->filter().rowCount()),
                                           selectedText(JobList_->selectedCount()), activityText()};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (const wxString text = toWx(texts[i]); status_[i]->GetLabelText() != text) status_[i]->SetLabelText(text);
    }
}

void FrmMain::bindCommands() {
    for (const auto& command : mainCommands()) {
        Bind(
            wxEVT_MENU, [this, &command](wxCommandEvent&) { run(command); }, idOf(command));
        Bind(
            wxEVT_UPDATE_UI, [](wxUpdateUIEvent& event) { event.Enable(mainCommandsEnabled()); }, idOf(command));
    }
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
    Bind(
        wxEVT_MENU, [](wxCommandEvent&) { openManual(); }, wxID_HELP);
}

void FrmMain::run(const MainCommand& command) {
    if (!mainCommandsEnabled()) return;
    keepJobs();  // some of them end the list
    runMainCommand(command.key, JobList_->selectedJob());
    showChanges();
}

void FrmMain::showChanges() {
    if (!txtLine_ && !jobList.empty()) makeLine();
    JobList_->showChanges();
    showStatus();
    keepLater();
    if (!txtLine_) return;
    const auto selected = JobList_->selectedJob();
    if (selected == shownLine_ && (!selected || shownRevision_ == jobList.revision())) return;
    shownLine_ = selected;
    shownRevision_ = jobList.revision();
    txtLine_->ChangeValue(selected ? toWx(wholeLine(std::string(jobList.line(*selected)))) : wxString());
}

void FrmMain::keepLater() {
    constexpr int delay = 1000;  // milliseconds
    if (keptRevision_ == jobList.revision()) return;
    keptRevision_ = jobList.revision();
    if (jobListIsWork() || !keptJobs.file.empty()) keepTimer_.StartOnce(delay);
}

/// To someone who has come to work with the list: not while a file that was named is prompted or run.
void FrmMain::offerKept() {
    hasOffered_ = true;
    const auto offer = settings.commandLine.empty() ? keptJobsOffer() : std::nullopt;
    if (!offer) return;
    if (!noticeLine_) {
        noticeLine_ = new NoticeLine(this, "noticeLine");
        GetSizer()->Prepend(noticeLine_, wxSizerFlags().Expand());
    }
    const auto restore = [this, file = offer->file] {
        if (jobListIsEditable()) restoreKeptJobs(file);
        offerKept();
    };
    const auto discard = [this, file = offer->file] {
        discardKeptJobs(file);
        offerKept();
    };
    std::vector<NoticeButton> buttons{{"Discard", "cmdDiscardJobs", discard}};
    if (offer->isReadable) buttons.insert(buttons.begin(), NoticeButton{"Restore", "cmdRestoreJobs", restore});
    noticeLine_->tell(offer->text, buttons);
}

void FrmMain::showMenu(wxContextMenuEvent& event) {
    wxMenu mnuPrincipal;
    appendCommands(mnuPrincipal);
    JobList_->showChanges();
    const bool byKey = event.GetPosition() == wxDefaultPosition;
    const wxPoint place = byKey ? JobList_->placeOfSelection() : JobList_->ScreenToClient(event.GetPosition());
    if (!byKey) JobList_->selectLineAt(place);
    mnuPrincipal.AppendSeparator();
    jobs_->appendCommands(mnuPrincipal);
    giveMnemonics(mnuPrincipal);
    popUpMenu(*JobList_, mnuPrincipal, place);
}

void FrmMain::closing(wxCloseEvent& /*event*/) {
    keepJobs();
    place_->save();
    mainWindowUnloaded();
    Hide();
    Destroy();
}

}  // namespace brasquelin
