#include "editor/frmCreateProfile.h"

#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

#include "check/keptTables.h"
#include "editor/editorFind.h"
#include "editor/editorListView.h"
#include "editor/editorMenus.h"
#include "editor/formActions.h"
#include "editor/groupArrows.h"
#include "editor/keptProfiles.h"
#include "editor/pluginQuery.h"
#include "editor/problemList.h"
#include "editor/recentProfiles.h"
#include "platform/desktop.h"
#include "platform/manual.h"
#include "platform/wx/buttons.h"
#include "platform/wx/colours.h"
#include "platform/wx/fileDropTarget.h"
#include "platform/wx/focusFrame.h"
#include "platform/wx/mnemonics.h"
#include "platform/wx/noticeLine.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/pictures.h"
#include "platform/wx/placement.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/sashes.h"
#include "platform/wx/wxText.h"
#include "text/text.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

constexpr int loopDelay = 50;  // milliseconds, so that the menu has closed
constexpr int editDelay = 100;
constexpr int checkDelay = 80;
constexpr int keepDelay = 1000;

/// The window is at work: while plugins run, events come through all the same.
class AtWork {
  public:
    AtWork(bool& busy, wxTextCtrl& name) : busy_(busy), name_(name) {
        busy_ = true;
        name_.SetEditable(false);
    }
    ~AtWork() {
        busy_ = false;
        name_.SetEditable(true);
    }
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;

  private:
    bool& busy_;
    wxTextCtrl& name_;
};

bool hasForm(const EditorListView& list) {
    return list.which() != EditorList::include && list.selectedCount() > 0;
}

void showPreview() {
    if (!tablesInUse()) return desktop().showWindow(ProgramWindow::preview, true);
    desktop().showMessage("Another file is still being run.", "Brasquelin", Icon::exclamation);
}

}  // namespace

FrmCreateProfile::FrmCreateProfile()
    : wxFrame(nullptr, wxID_ANY, "Profile Editor", wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE,
              "frmCreateProfile"),
      parts_(new wxPanel(this)) {
    enterEditor();
    SetIcons(programIcons());
    SetMinSize(FromDIP(wxSize(420, 500)));
    SetSize(FromDIP(wxSize(760, 780)));
    placeOnScreen(*this);
    SetMenuBar(makeEditorMenus(mnuRecent_));
    bindMenus();
    bindTimers();
    makeParts();
    Bind(wxEVT_CLOSE_WINDOW, &FrmCreateProfile::closing, this);
    SetDropTarget(new FileDropTarget([this](const std::vector<std::string>& paths) { return takeFiles(paths); }));

    CreateStatusBar(1, wxSTB_DEFAULT_STYLE, wxID_ANY, "statusLine");
    editorState.statusChanged = [this] {
        showStatus();
        GetStatusBar()->Update();
    };
    showDocument();
    lookForNotices();
    listInclude_->SetFocus();
}

FrmCreateProfile::~FrmCreateProfile() = default;

void FrmCreateProfile::makeParts() {
    auto* all = new wxBoxSizer(wxVERTICAL);
    notice_ = new NoticeLine(parts_, "notice");
    all->Add(notice_, wxSizerFlags().Expand());
    all->Add(makeName(), wxSizerFlags().Expand().DoubleBorder(wxALL));
    Sashes sashes(parts_, 4);
    auto* includes = makeList(sashes.parentFor(0), listInclude_, EditorList::include, "listInclude",
                              "Include (library , profile or plugin) :", "[library] ... [/library]");
    auto* variables =
        makeList(sashes.parentFor(1), listVar_, EditorList::variables, "listVar", "Variables :", "[var] ... [/var]");
    auto* commands = makeList(sashes.parentFor(2), listCommand_, EditorList::commands, "listCommand",
                              "Profile (Command to execute) :", "[profile] ... [/profile]");
    auto* problems = makeProblems(sashes.parentFor(3));
    sashes.arrange({{includes, 2}, {variables, 3}, {commands, 4}, {problems, 2}});
    all->Add(sashes.whole(), wxSizerFlags(1).Expand().DoubleBorder(wxLEFT | wxRIGHT));
    find_ =
        std::make_unique<EditorFind>(parts_, *all,
                                     EditorFind::Lists{.selected = [this] { return selectedPlace(); },
                                                       .select = [this](DocumentPlace place) { selectAlone(place); },
                                                       .focus = [this] { listInUse().SetFocus(); }});
    parts_->SetSizer(all);
    notice_->MoveAfterInTabOrder(sashes.whole());
}

void FrmCreateProfile::onItem(int id, Action action) {
    Bind(
        wxEVT_MENU, [action = std::move(action)](wxCommandEvent&) { action(); }, id);
}

void FrmCreateProfile::bindMenus() {
    onItem(wxID_NEW, [this] {
        act([this] {
            startNewProfile();
            showNewDocument();
        });
        lookForNotices();
    });
    onItem(wxID_OPEN, [this] { open(openProfile); });
    bindRecent();
    onItem(wxID_SAVE, [this] { save(saveProfile); });
    onItem(wxID_SAVEAS, [this] { save(saveProfileAs); });
    onItem(wxID_EXIT, [this] { Close(); });
    Bind(
        wxEVT_UPDATE_UI, [](wxUpdateUIEvent& event) { event.Enable(canSave()); }, wxID_SAVE);

    bindEditMenu();
    onItem(mnuPreview, [this] { act(showPreview); });
    onItem(wxID_HELP, openManual);

    onItem(mnuAdd, [this] { act(addLines); });
    onItem(mnuEdit, [this] { edit(); });
    onItem(mnuRemove, [this] { onGroups(activeList(), removeSelected); });
    onItem(mnuClear, [this] { act(clearActiveList); });
    onItem(mnuFor, [this] { ForTimer_.StartOnce(loopDelay); });
    onItem(mnuNext, [this] { act(appendNext); });
}

void FrmCreateProfile::open(const std::function<void(const Action& opened)>& step) {
    act([&] {
        const wxBusyCursor plugins;
        step([this] { showOpened(); });
    });
    lookForNotices();
}

void FrmCreateProfile::save(const Action& step) {
    act(step);
    lookForNotices();
}

void FrmCreateProfile::bindRecent() {
    Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
        showRecent();
        event.Skip();
    });
    for (int i = 0; i < wxID_FILE9 - wxID_FILE1 + 1; ++i) {
        onItem(wxID_FILE1 + i, [this, i] {
            const auto paths = recentProfiles();
            if (static_cast<std::size_t>(i) >= paths.size()) return;
            const auto& path = paths[static_cast<std::size_t>(i)];
            open([&path](const Action& opened) { openProfileAt(path, opened); });
        });
    }
}

void FrmCreateProfile::showRecent() {
    while (mnuRecent_->GetMenuItemCount() > 0) mnuRecent_->Destroy(mnuRecent_->FindItemByPosition(0));
    int id = wxID_FILE1;
    for (const auto& path : recentProfiles()) {
        const std::string label = replaceAll(visibleText(path), "&", "&&");
        mnuRecent_->Append(id, toWx("&" + std::to_string(id - wxID_FILE1 + 1) + "  " + label));
        ++id;
    }
    if (id == wxID_FILE1) mnuRecent_->Append(wxID_NONE, "None yet")->Enable(false);
}

/// Whoever dragged the files must not wait.
bool FrmCreateProfile::takeFiles(const std::vector<std::string>& paths) {
    if (busy_ || dialogIsOpen()) return false;
    CallAfter([this, paths] { open([&paths](const Action& opened) { takeDropped(paths, opened); }); });
    return true;
}

void FrmCreateProfile::bindEditMenu() {
    onItem(wxID_UNDO, [this] { stepThrough(undoChange); });
    onItem(wxID_REDO, [this] { stepThrough(redoChange); });
    onItem(mnuForm, [this] { onGroups(listInUse(), editInForm); });
    onItem(mnuLine,
           [this] { onLines(*listCommand_, [this] { return addCommandLine(listCommand_->selectedLines()); }); });
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Enable(hasForm(listInUse())); }, mnuForm);
    onItem(wxID_CUT, [this] { onText(&wxTextCtrl::Cut, cutSelected); });
    onItem(wxID_COPY, [this] {
        if (auto* text = textInUse()) return text->Copy();
        LineList& list = listProblems_->HasFocus() ? static_cast<LineList&>(*listProblems_) : listInUse();
        list.copySelected();
    });
    onItem(wxID_PASTE, [this] { onText(&wxTextCtrl::Paste, pasteBehind); });
    onItem(wxID_SELECTALL, [this] {
        if (auto* text = textInUse()) return text->SelectAll();
        listInUse().selectAll();
    });
    onItem(wxID_FIND, [this] { find_->open(); });
    onItem(mnuFindNext, [this] { find_->again(SearchWay::forward); });
    onItem(mnuFindBack, [this] { find_->again(SearchWay::back); });
    Bind(
        wxEVT_UPDATE_UI, [](wxUpdateUIEvent& event) { event.Enable(editorState.edited.canUndo()); }, wxID_UNDO);
    Bind(
        wxEVT_UPDATE_UI, [](wxUpdateUIEvent& event) { event.Enable(editorState.edited.canRedo()); }, wxID_REDO);
}

void FrmCreateProfile::bindTimers() {
    ForTimer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { act(askLoop); });
    tmrEdit_.Bind(wxEVT_TIMER,
                  [this](wxTimerEvent&) { act([this] { editCommandLine(listCommand_->selectedLine()); }); });
    tmrCheck_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { showProblems(); });
    tmrKeep_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { canKeep_ = tryToKeep(); });
}

wxSizer* FrmCreateProfile::makeName() {
    profileName_ =
        makeTextBox(parts_, "profileName", editorState.document.profileName, [this](const std::string& name) {
            editorState.edited.rename(name);
            SetTitle(toWx(editorTitle()));
            tmrCheck_.StartOnce(checkDelay);
            keepSoon();
        });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(parts_, wxID_ANY, "Profile name :"), wxSizerFlags().CenterVertical().Border(wxRIGHT));
    row->Add(profileName_, wxSizerFlags(1).CenterVertical());
    return row;
}

wxPanel* FrmCreateProfile::makeList(wxWindow* parent, EditorListView*& list, EditorList which, const char* name,
                                    const char* caption, const char* section) {
    auto* part = new wxPanel(parent);
    auto* tags = new wxStaticText(part, wxID_ANY, section);
    tags->SetForegroundColour(dimmedText(*part));
    auto* captions = new wxBoxSizer(wxHORIZONTAL);
    captions->Add(new wxStaticText(part, wxID_ANY, caption), wxSizerFlags(1));
    captions->Add(tags);
    auto* frame = new FocusFrame(part);
    list = new EditorListView(frame, which, name);
    frame->hold(*list);
    bindList(*list);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(frame, wxSizerFlags(1).Expand());
    auto& itsList = *list;
    arrows_.push_back(std::make_unique<GroupArrows>(
        part, itsList, [this, &itsList](GroupAction action) { onGroups(itsList, action); }));
    row->Add(arrows_.back()->column(), wxSizerFlags().CenterVertical().Border(wxLEFT));
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(captions, wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM));
    column->Add(row, wxSizerFlags(1).Expand());
    part->SetSizer(column);
    return part;
}

void FrmCreateProfile::updateArrows() {
    for (const auto& arrows : arrows_) arrows->update();
}

wxPanel* FrmCreateProfile::makeProblems(wxWindow* parent) {
    auto* part = new wxPanel(parent);
    auto* frame = new FocusFrame(part);
    listProblems_ = new ProblemList(frame);
    frame->hold(*listProblems_);
    listProblems_->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { goToProblem(); });
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(new wxStaticText(part, wxID_ANY, "Problems :"), wxSizerFlags().Border(wxTOP | wxBOTTOM));
    column->Add(frame, wxSizerFlags(1).Expand());
    part->SetSizer(column);
    return part;
}

void FrmCreateProfile::bindList(EditorListView& list) {
    list.Bind(wxEVT_CONTEXT_MENU, [this, &list](wxContextMenuEvent& event) { showContextMenu(list, event); });
    list.Bind(wxEVT_LIST_ITEM_ACTIVATED, [this, &list](wxListEvent&) { addTo(list); });
    list.Bind(wxEVT_KEY_DOWN, [this, &list](wxKeyEvent& event) { handleKey(list, event); });
    list.Bind(wxEVT_SET_FOCUS, [this, &list](wxFocusEvent& event) {
        listInUse_ = &list;
        event.Skip();
    });
    const auto which = list.which();
    list.letLinesBeDragged({[&list, which] { return selectedText(which, list.selectedLines()); },
                            [this, &list, which](std::size_t before) {
                                onLines(list, [&] { return moveSelectedTo(which, list.selectedLines(), before); });
                            },
                            [this, &list, which](std::size_t before, const std::string& text) {
                                onLines(list, [&] { return insertText(which, before, text); });
                            },
                            [this](const std::vector<std::string>& paths) { takeFiles(paths); }});
    // Below the last line there is no item to activate. Some desktops draw the lines in a window of their own.
    const auto besideLines = [this, &list](wxMouseEvent& event) {
        int flags = 0;
        if (list.HitTest(event.GetPosition(), flags) == wxNOT_FOUND) return addTo(list);
        event.Skip();
    };
    list.Bind(wxEVT_LEFT_DCLICK, besideLines);
    for (auto* part : list.GetChildren()) part->Bind(wxEVT_LEFT_DCLICK, besideLines);
}

void FrmCreateProfile::act(const Action& action) {
    if (busy_) return;
    {
        const AtWork atWork(busy_, *profileName_);
        const bool wasSaved = editorState.edited.isSaved();
        action();
        if (wasSaved && !editorState.edited.isSaved()) tellStatus({});
    }
    showDocument();
    showNotices();
}

void FrmCreateProfile::showNewDocument() {
    for (auto* list : lists()) list->showFromStart();
}

void FrmCreateProfile::showOpened() {
    showNewDocument();
    showDocument();
    desktop().processPendingEvents();  // so that it is seen while its plugins run
}

/// For when files may tell something else: whoever edits must not wait for them.
void FrmCreateProfile::lookForNotices() {
    offer_ = keptOffer();
    loss_ = lossNote();
    notice_->hide();
    showNotices();
}

/// One at a time: what can be lost comes first.
void FrmCreateProfile::showNotices() {
    if (offer_) return showOffer(*offer_);
    if (!loss_.empty()) return showLossNotice(loss_);
    if (const std::string plugins = newPluginsNote(); !plugins.empty()) return showPluginNotice(plugins);
    notice_->hide();
}

void FrmCreateProfile::showOffer(const KeptOffer& offer) {
    const auto restore = [this, file = offer.file] {
        open([&file](const Action& opened) { restoreProfile(file, opened); });
    };
    const auto discard = [this, file = offer.file] {
        discardKept(file);
        lookForNotices();
    };
    notice_->tell(offer.text, {{"Restore", "cmdRestore", restore}, {"Discard", "cmdDiscard", discard}});
}

void FrmCreateProfile::showLossNotice(const std::string& text) {
    const auto seen = [this] {
        loss_.clear();
        showNotices();
    };
    const auto show = [seen] {
        showLoss();
        seen();
    };
    notice_->tell(text, {{"Show", "cmdShowLoss", show}, {"Close", "cmdCloseNotice", seen}});
}

void FrmCreateProfile::showPluginNotice(const std::string& text) {
    const auto load = [this] {
        act([] {
            const wxBusyCursor plugins;
            queryNewPlugins();
        });
    };
    notice_->tell(text, {{"Load its variables", "cmdLoadVariables", load}});
}

/// What was told goes with the next change.
void FrmCreateProfile::showStatus() {
    SetStatusText(toWx(visibleText(editorState.status)));
}

/// Not with every change, but while changes come, too.
void FrmCreateProfile::keepSoon() {
    if (canKeep_ && !tmrKeep_.IsRunning()) tmrKeep_.StartOnce(keepDelay);
}

void FrmCreateProfile::showDocument() {
    const wxString name = toWx(editorState.document.profileName);
    if (profileName_->GetValue() != name) profileName_->ChangeValue(name);
    for (auto* list : lists()) list->showChanges();
    updateArrows();
    SetTitle(toWx(editorTitle()));
    tmrCheck_.StartOnce(checkDelay);
    keepSoon();
}

void FrmCreateProfile::showProblems() {
    if (busy_) return;
    if (tablesInUse()) return (void)tmrCheck_.StartOnce(checkDelay);
    editorState.problems = findProblems(editorState.document);
    listProblems_->showProblems();
    for (auto* list : lists()) list->Refresh();
}

void FrmCreateProfile::goToProblem() {
    const auto selected = listProblems_->selectedLine();
    if (busy_ || !selected) return;
    goTo(editorState.problems[*selected].place);
}

/// Selects the group of this line, the last one when the line is gone.
void FrmCreateProfile::goTo(DocumentPlace place) {
    auto* list = viewOf(place.list);
    const auto& lines = editorState.document.list(place.list);
    if (!list || lines.empty()) return;
    list->selectLine(groupStart(lines, place.list, std::min(place.line, lines.size() - 1)));
}

void FrmCreateProfile::selectAlone(DocumentPlace place) {
    for (auto* list : lists()) list->selectLine({});
    listInUse_ = viewOf(place.list);
    listInUse_->selectLine(place.line);
}

DocumentPlace FrmCreateProfile::selectedPlace() const {
    return {listInUse().which(), listInUse().selectedLine().value_or(0)};
}

EditorListView* FrmCreateProfile::viewOf(EditorList which) const {
    for (auto* list : lists()) {
        if (list->which() == which) return list;
    }
    return nullptr;
}

EditorListView& FrmCreateProfile::activeList() const {
    auto* list = viewOf(editorState.activeList);
    return list ? *list : *listCommand_;
}

void FrmCreateProfile::showContextMenu(EditorListView& list, wxContextMenuEvent& event) {
    if (busy_) return;
    const bool byKey = event.GetPosition() == wxDefaultPosition;
    const wxPoint place = byKey ? list.placeOfSelection() : list.ScreenToClient(event.GetPosition());
    if (!byKey) list.selectLineAt(place);
    editorState.activeList = list.which();
    listInUse_ = &list;
    wxMenu mnuRight;
    fillListMenu(mnuRight, list.which(), list.selectedLine().has_value());
    popUpMenu(list, mnuRight, place);
}

void FrmCreateProfile::handleKey(EditorListView& list, wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool plain = !event.HasAnyModifiers();
    const bool moves = event.GetModifiers() == wxMOD_CONTROL || event.GetModifiers() == wxMOD_ALT;
    if (moves && key == WXK_UP) return onGroups(list, moveSelectedUp);
    if (moves && key == WXK_DOWN) return onGroups(list, moveSelectedDown);
    if (key == WXK_F2 && event.GetModifiers() == wxMOD_SHIFT) return onGroups(list, editInForm);
    if (busy_ || !plain) return event.Skip();
    const EditorList before = std::exchange(editorState.activeList, list.which());
    if (key == WXK_INSERT) return act(addLines);
    if (key == WXK_F2) return edit();
    if (key == WXK_DELETE || key == WXK_NUMPAD_DELETE) return onGroups(list, removeSelected);
    editorState.activeList = before;
    event.Skip();
}

void FrmCreateProfile::addTo(EditorListView& list) {
    if (busy_) return;
    editorState.activeList = list.which();
    act(addLines);
}

void FrmCreateProfile::edit() {
    if (editorState.activeList == EditorList::commands) {
        tmrEdit_.StartOnce(editDelay);
    } else {
        act([this] { editLine(activeList().selectedLine()); });
    }
}

void FrmCreateProfile::stepThrough(Step step) {
    DocumentPlace changed;
    act([&] { changed = step(); });
    goTo(changed);
}

void FrmCreateProfile::onGroups(EditorListView& list, GroupAction action) {
    onLines(list, [&] { return action(list.which(), list.selectedLines()); });
}

/// The box that has the keys, if one has.
wxTextCtrl* FrmCreateProfile::textInUse() {
    return dynamic_cast<wxTextCtrl*>(FindFocus());
}

void FrmCreateProfile::onText(void (wxTextCtrl::*ofText)(), GroupAction action) {
    if (auto* text = textInUse()) return (text->*ofText)();
    onGroups(listInUse(), action);
}

/// Selects what the action gives.
void FrmCreateProfile::onLines(EditorListView& list, const std::function<LineNumbers()>& action) {
    LineNumbers next = list.selectedLines();
    act([&] { next = action(); });
    list.selectLines(next);
    updateArrows();
}

void FrmCreateProfile::closing(wxCloseEvent& event) {
    if (busy_ && event.CanVeto()) {
        stopWaiting();
        return event.Veto();
    }
    ForTimer_.Stop();
    tmrEdit_.Stop();
    tmrCheck_.Stop();
    tmrKeep_.Stop();
    editorState.statusChanged = {};
    leaveEditor();
    Hide();
    Destroy();
}

}  // namespace brasquelin
