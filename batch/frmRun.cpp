#include "batch/frmRun.h"

#include <wx/accel.h>
#include <wx/appprogress.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/gauge.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "batch/outputTail.h"
#include "batch/outputView.h"
#include "batch/runPreferences.h"
#include "batch/runRowList.h"
#include "batch/runTexts.h"
#include "platform/desktop.h"
#include "platform/reporting.h"
#include "platform/wx/accessibleNames.h"
#include "platform/wx/buttons.h"
#include "platform/wx/choiceBox.h"
#include "platform/wx/colours.h"
#include "platform/wx/messageLines.h"
#include "platform/wx/mnemonics.h"
#include "platform/wx/notice.h"
#include "platform/wx/pictures.h"
#include "platform/wx/placement.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/wxText.h"
#include "text/raised.h"
#include "text/runTimeError.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

constexpr int gaugeRange = 1000;
constexpr int tickTime = 50;         // milliseconds
constexpr long progressPause = 200;  // likewise

void setText(wxStaticText& label, const std::string& text) {
    const wxString shown = toWx(text);
    if (label.GetLabelText() == shown) return;
    label.SetLabelText(shown);
    label.SetToolTip(shown);
}

wxCheckBox* makeCheck(wxWindow* parent, const char* caption, const char* name, std::function<void(bool)> changed) {
    auto* box =
        new wxCheckBox(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    box->Bind(wxEVT_CHECKBOX, [changed = std::move(changed)](wxCommandEvent& event) { changed(event.IsChecked()); });
    return box;
}

enum MenuCommand { copyLineId = wxID_HIGHEST + 1, copyOutputId, runFromId };

}  // namespace

FrmRun::FrmRun(std::unique_ptr<RunLink> link, StartRunner startRunner, std::string preferences)
    : wxFrame(nullptr, wxID_ANY, "Brasquelin", wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE, "frmRun"),
      session_(std::move(link), std::move(startRunner)),
      preferences_(std::move(preferences)) {
    SetIcons(programIcons());
    auto* panel = new wxPanel(this);
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(makePanes(panel), wxSizerFlags(1).Expand().DoubleBorder(wxLEFT | wxRIGHT | wxTOP));
    all->Add(makeMessage(panel), wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT));
    all->Add(makeProgress(panel), wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxTOP));
    all->Add(makeRunButtons(panel), wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxTOP));
    all->Add(makeWindowButtons(panel), wxSizerFlags().Expand().DoubleBorder(wxALL));
    panel->SetSizer(all);
    SetMinClientSize(all->CalcMin());
    wxSize size = FromDIP(wxSize(920, 700));
    size.IncTo(all->CalcMin());
    SetClientSize(size);
    placeOnScreen(*this);
    bindEvents();
    nameForAssistiveTools(*JobRows_, "Jobs");
    nameForAssistiveTools(*txtCommand_, "Command line");
    nameForAssistiveTools(*txtOutput_, "Output");
    nameForAssistiveTools(*gauge_, "Progress");
    JobRows_->SetFocus();
    tick();
    timer_.Start(tickTime);
}

FrmRun::~FrmRun() = default;

wxSizer* FrmRun::makeMessage(wxWindow* parent) {
    const bool dark = isDark(parent->GetBackgroundColour());
    message_ = new wxPanel(parent);
    message_->SetBackgroundColour(dark ? wxColour(84, 70, 24) : wxColour(255, 244, 206));
    lblMessage_ =
        new wxStaticText(message_, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE, "lblMessage");
    lblMessage_->SetForegroundColour(dark ? *wxWHITE : *wxBLACK);
    cmdGoOn_ = makeButton(message_, "Go &on", "cmdGoOn", [this] { runAgain(session_.rows().openJobs()); });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(lblMessage_, wxSizerFlags(1).CenterVertical().DoubleBorder());
    row->Add(cmdGoOn_, wxSizerFlags().CenterVertical().Border());
    message_->SetSizer(row);
    message_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        breakMessage();
        event.Skip();
    });
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(message_, wxSizerFlags().Expand().Border(wxTOP));
    message_->Hide();
    return sizer;
}

wxWindow* FrmRun::makePanes(wxWindow* parent) {
    auto* panes = new wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxSP_LIVE_UPDATE | wxSP_3DSASH, "panes");
    JobRows_ = new RunRowList(panes, session_.rows(), [this] { selectionChanged(); });
    panes->SetMinimumPaneSize(FromDIP(110));
    panes->SetSashGravity(0.5);
    panes->SplitHorizontally(JobRows_, makeOutput(panes));
    return panes;
}

wxWindow* FrmRun::makeOutput(wxWindow* parent) {
    auto* pane = new wxPanel(parent);
    txtCommand_ = new wxTextCtrl(pane, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_READONLY,
                                 wxDefaultValidator, "txtCommand");
    txtCommand_->SetFont(JobRows_->GetFont());
    auto* optJob = new wxRadioButton(pane, wxID_ANY, "Output of the selected &job", wxDefaultPosition, wxDefaultSize,
                                     wxRB_GROUP, wxDefaultValidator, "optJob");
    optRun_ = new wxRadioButton(pane, wxID_ANY, "Output of the w&hole run", wxDefaultPosition, wxDefaultSize, 0,
                                wxDefaultValidator, "optRun");
    for (auto* option : {optJob, optRun_}) option->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) { showOutput(); });
    txtOutput_ = new OutputView(pane);
    auto* options = new wxBoxSizer(wxHORIZONTAL);
    options->Add(optJob, wxSizerFlags().Border(wxRIGHT));
    options->Add(optRun_, wxSizerFlags().DoubleBorder(wxLEFT));
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(txtCommand_, wxSizerFlags().Expand().Border(wxTOP));
    column->Add(options, wxSizerFlags().Border(wxTOP | wxBOTTOM));
    column->Add(txtOutput_, wxSizerFlags(1).Expand());
    pane->SetSizer(column);
    return pane;
}

wxSizer* FrmRun::makeProgress(wxWindow* parent) {
    gauge_ = new wxGauge(parent, wxID_ANY, gaugeRange, wxDefaultPosition, FromDIP(wxSize(160, 16)), wxGA_HORIZONTAL,
                         wxDefaultValidator, "gauge");
    lblState_ = new wxStaticText(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                 wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, "lblState");
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(gauge_, wxSizerFlags().CenterVertical().DoubleBorder(wxRIGHT));
    row->Add(lblState_, wxSizerFlags(1).CenterVertical());
    return row;
}

wxSizer* FrmRun::makeRunButtons(wxWindow* parent) {
    cmdStopAfter_ = makeButton(parent, "Stop &after this job", "cmdStopAfter", [this] { session_.stopAfterJob(); });
    cmdStopNow_ = makeButton(parent, "Stop &now", "cmdStopNow", [this] { session_.stopNow(); });
    auto* atFailure = makeCheck(parent, "Stop at first &failure", "chkStopAtFailure",
                                [this](bool stops) { session_.setStopAtFailure(stops); });
    cmdRunFailed_ =
        makeButton(parent, "&Run failed again", "cmdRunFailed", [this] { runAgain(session_.rows().failedJobs()); });
    cmdRunFrom_ = makeButton(parent, "Run a&gain from here", "cmdRunFrom", [this] { runFromSelected(); });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(cmdStopAfter_, wxSizerFlags().Border(wxRIGHT));
    row->Add(cmdStopNow_, wxSizerFlags().DoubleBorder(wxRIGHT));
    row->Add(atFailure, wxSizerFlags().CenterVertical());
    row->AddStretchSpacer();
    row->Add(cmdRunFailed_, wxSizerFlags().DoubleBorder(wxLEFT));
    row->Add(cmdRunFrom_, wxSizerFlags().Border(wxLEFT));
    return row;
}

wxSizer* FrmRun::makeWindowButtons(wxWindow* parent) {
    cmdCopyOutput_ = makeButton(parent, "&Copy output", "cmdCopyOutput", [this] { copyOutput(); });
    cmdSaveOutput_ = makeButton(parent, "&Save output ...", "cmdSaveOutput", [this] { saveOutput(); });
    chkCloseWhenWell_ = makeCheck(parent, "Close when all went &well", "chkCloseWhenWell",
                                  [this](bool closes) { setClosesWhenWell(preferences_, closes); });
    chkCloseWhenWell_->SetValue(closesWhenWell(preferences_));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(cmdCopyOutput_, wxSizerFlags().Border(wxRIGHT));
    row->Add(cmdSaveOutput_);
    row->AddStretchSpacer();
    row->Add(chkCloseWhenWell_, wxSizerFlags().CenterVertical().DoubleBorder(wxLEFT | wxRIGHT));
    row->Add(makeButton(parent, "C&lose", "cmdClose", [this] { Close(); }));
    return row;
}

void FrmRun::bindEvents() {
    Bind(wxEVT_CLOSE_WINDOW, &FrmRun::closing, this);
    bindMnemonics(*this);
    timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { tick(); });
    JobRows_->Bind(wxEVT_CONTEXT_MENU, &FrmRun::showMenu, this);
    JobRows_->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == 'C' && event.GetModifiers() == wxMOD_CONTROL) return copyLine();
        event.Skip();
    });
    const auto bindCommand = [this](int id, void (FrmRun::*command)()) {
        JobRows_->Bind(
            wxEVT_MENU, [this, command](wxCommandEvent&) { (this->*command)(); }, id);
    };
    bindCommand(copyLineId, &FrmRun::copyLine);
    bindCommand(copyOutputId, &FrmRun::copyOutput);
    bindCommand(runFromId, &FrmRun::runFromSelected);
    wxAcceleratorEntry quit(wxACCEL_CTRL, 'Q', wxID_EXIT);
    SetAcceleratorTable(wxAcceleratorTable(1, &quit));
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
}

void FrmRun::tick() {
    session_.poll();
    showChanges();
    if (copy_) reporting(copy_->target(), [this] { stepCopy(); });
    if (session_.rows().phase() == RunPhase::asking && !askedToResume_) {
        askedToResume_ = true;
        CallAfter([this] { askToResume(); });
    }
    if (session_.ends() != shownEnds_) runEnded();
    runningBefore_ = session_.rows().runningJob();
}

void FrmRun::showChanges() {
    JobRows_->showChanges();
    const auto latest = session_.rows().lastStarted();
    if (following_ && latest && JobRows_->selectedJob() != latest) {
        JobRows_->selectJob(*latest);
        showCommand();
    }
    showOutput();
    enableButtons();
    if (sinceProgress_.Time() < progressPause && gauge_->GetValue() > 0) return;
    sinceProgress_.Start();
    showProgress();
}

void FrmRun::showProgress() {
    const RunRows& rows = session_.rows();
    const int value = static_cast<int>(rows.fractionDone() * gaugeRange);
    if (gauge_->GetValue() != value) gauge_->SetValue(value);
    setText(*lblState_, progressText(rows));
    const wxString title = toWx(titleText(rows));
    if (GetTitle() != title) SetTitle(title);
    if (rows.isRunning() && IsShown()) {
        if (!taskBar_) taskBar_ = std::make_unique<wxAppProgressIndicator>(this, gaugeRange);
        taskBar_->SetValue(value);
    }
    const std::string troubles = session_.troubles();
    if (rows.isRunning() && !troubles.empty()) showMessage(troubles, false);
}

void FrmRun::enableButtons() {
    const RunCommands may = session_.commands();
    const bool hasOutput = !session_.rows().outputFile().empty();
    cmdStopAfter_->Enable(may.stopAfterJob);
    cmdStopNow_->Enable(may.stopNow);
    cmdRunFailed_->Enable(may.runFailed);
    cmdRunFrom_->Enable(may.runFrom && JobRows_->selectedJob());
    cmdCopyOutput_->Enable(hasOutput);
    cmdSaveOutput_->Enable(hasOutput && !copy_);
}

void FrmRun::selectionChanged() {
    following_ = JobRows_->selectedJob() == session_.rows().lastStarted();
    showCommand();
    showOutput();
    enableButtons();
}

void FrmRun::showCommand() {
    const auto job = JobRows_->selectedJob();
    txtCommand_->ChangeValue(job ? toWx(visibleText(session_.rows().row(*job).line())) : wxString());
}

FrmRun::Piece FrmRun::shownPiece() const {
    const RunRows& rows = session_.rows();
    if (optRun_->GetValue()) return {rows.outputFile(), 0, OutputTail::growing};
    const auto job = JobRows_->selectedJob();
    if (!job || !rows.row(*job).hasOutput) return {};
    const RunRow& row = rows.row(*job);
    // One that has just begun may be over by now, and what follows in the file the output of many others.
    if (row.state == JobState::running && job != runningBefore_) return {};
    const bool over = row.state == JobState::done || row.state == JobState::failed;
    return {rows.outputFile(), row.outputBegin, over ? row.outputEnd : OutputTail::growing};
}

void FrmRun::showOutput() {
    const Piece piece = shownPiece();
    txtOutput_->show(piece.file, piece.begin, piece.end);
    txtOutput_->update();
}

void FrmRun::runEnded() {
    shownEnds_ = session_.ends();
    showChanges();
    const RunRows& rows = session_.rows();
    const auto failed = rows.failedJobs();
    const bool hadFollowed = std::exchange(following_, false);
    if (hadFollowed && !failed.empty()) {
        JobRows_->selectJob(failed.front());
        showCommand();
    }
    showChanges();
    showProgress();
    if (taskBar_) taskBar_->Reset();
    const std::string troubles = session_.troubles();
    showMessage(endText(rows) + (troubles.empty() ? "" : "\n" + troubles), session_.commands().goOn);
    notifyUser(*this, fromWx(GetTitle()), endText(rows));
    const bool allWell = rows.phase() == RunPhase::ended && rows.counts().done == rows.size();
    if (allWell && chkCloseWhenWell_->GetValue() && !asking_ && !copy_) CallAfter([this] { Close(); });
}

void FrmRun::showMessage(const std::string& text, bool offerToGoOn) {
    if (messageText_ == text && cmdGoOn_->IsShown() == offerToGoOn) return;
    messageText_ = text;
    cmdGoOn_->Show(offerToGoOn);
    message_->Show(!text.empty());
    breakMessage();
    layOutMessage();
}

/// As many lines as the text needs at the present width.
void FrmRun::breakMessage() {
    const int buttons = cmdGoOn_->IsShown() ? cmdGoOn_->GetBestSize().x : 0;
    const int width = message_->GetParent()->GetClientSize().x - buttons - FromDIP(60);
    const auto characters = static_cast<std::size_t>(std::max(width / lblMessage_->GetCharWidth(), 20));
    const wxString lines = brokenIntoLines(toWx(messageText_), characters);
    if (lblMessage_->GetLabelText() == lines) return;
    lblMessage_->SetLabelText(lines);
    lblMessage_->InvalidateBestSize();
    lblMessage_->SetMinSize(wxSize(1, lblMessage_->GetBestSize().y));
    CallAfter([this] { layOutMessage(); });
}

void FrmRun::layOutMessage() {
    message_->InvalidateBestSize();
    message_->GetParent()->Layout();
    message_->Layout();
    JobRows_->keepSelectionVisible();
}

void FrmRun::askToResume() {
    const Raised whileOpen(asking_);
    const Choice choice =
        askChoice({resumeQuestion(session_.rows()), "Brasquelin", "&Go on", "From the &start", "&Neither"});
    if (choice == Choice::first) return session_.resume();
    if (choice == Choice::second) return session_.runFromStart();
    session_.runNothing();
}

void FrmRun::runAgain(const std::vector<std::size_t>& jobs) {
    if (jobs.empty() || session_.rows().isRunning()) return;
    session_.runAgain(jobs);
    following_ = true;
    showMessage({}, false);
    showChanges();
    showProgress();
}

void FrmRun::runFromSelected() {
    if (const auto job = JobRows_->selectedJob()) runAgain(session_.rows().jobsFrom(*job));
}

void FrmRun::showMenu(wxContextMenuEvent& event) {
    const bool byKey = event.GetPosition() == wxDefaultPosition;
    const wxPoint place = byKey ? JobRows_->placeOfSelection() : JobRows_->ScreenToClient(event.GetPosition());
    if (!byKey) JobRows_->selectJobAt(place);
    const bool selected = JobRows_->selectedJob().has_value();
    wxMenu menu;
    menu.Append(copyLineId, "Copy &line\tCtrl+C")->Enable(selected);
    menu.Append(copyOutputId, "&Copy output")->Enable(selected);
    menu.AppendSeparator();
    menu.Append(runFromId, "Run a&gain from here")->Enable(selected && session_.commands().runFrom);
    giveMnemonics(menu);
    popUpMenu(*JobRows_, menu, place);
}

void FrmRun::copyLine() {
    if (const auto job = JobRows_->selectedJob()) desktop().copyToClipboard(session_.rows().row(*job).line());
}

/// More of it than is shown.
void FrmRun::copyOutput() {
    constexpr std::size_t mostBytes = 8U << 20U;
    const Piece piece = shownPiece();
    OutputTail tail(mostBytes);
    tail.show(piece.file, piece.begin, piece.end);
    tail.update();
    desktop().copyToClipboard(tail.text());
}

void FrmRun::saveOutput() {
    const Raised whileOpen(asking_);
    const std::string target =
        desktop().askFile({FileDialogMode::save, "Save output", "Text files|*.txt|All files|*.*", "output.txt"});
    if (target.empty()) return;
    reporting(target, [this, &target] { copy_ = std::make_unique<OutputCopy>(session_.rows().outputFile(), target); });
}

/// An error ends the copy.
void FrmRun::stepCopy() {
    auto copy = std::move(copy_);
    if (copy->step()) return showMessage("The output is saved as '" + copy->target() + "'.", false);
    showMessage("Saving the output: " + std::to_string(static_cast<int>(copy->fractionDone() * 100)) + " %", false);
    copy_ = std::move(copy);
}

void FrmRun::closing(wxCloseEvent& event) {
    if (event.CanVeto() && asking_) return event.Veto();
    if (event.CanVeto() && session_.rows().isRunning()) {
        const Raised whileOpen(asking_);
        const Choice choice = askChoice({"Jobs are running. What is to become of them?", "Brasquelin", "&Stop them",
                                         "&Leave them running", "S&tay", true});
        if (choice == Choice::neither) return event.Veto();
        if (choice == Choice::first) session_.stopNow();
    }
    timer_.Stop();
    Hide();
    Destroy();
    throw EndProgram(0);
}

void showRunWindow(std::unique_ptr<RunLink> link, StartRunner startRunner, const std::string& preferences) {
    auto* window = new FrmRun(std::move(link), std::move(startRunner), preferences);
    nameControlsByLabels(*window);
    window->Show();
    window->Raise();
}

}  // namespace brasquelin
