// The profile editor: the three lists of a profile and its name.
#pragma once

#include <wx/frame.h>
#include <wx/timer.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editor/editorActions.h"
#include "editor/groupActions.h"
#include "editor/keptProfiles.h"

class wxPanel;
class wxSizer;
class wxTextCtrl;

namespace brasquelin {

class EditorFind;
class EditorListView;
class GroupArrows;
class NoticeLine;
class ProblemList;

class FrmCreateProfile : public wxFrame {
  public:
    FrmCreateProfile();
    ~FrmCreateProfile() override;

  private:
    using Action = std::function<void()>;

    void bindMenus();
    void open(const std::function<void(const Action& opened)>& step);
    void save(const Action& step);
    void bindRecent();
    void showRecent();
    bool takeFiles(const std::vector<std::string>& paths);
    void bindEditMenu();
    void makeParts();
    wxSizer* makeName();
    wxPanel* makeList(wxWindow* parent, EditorListView*& list, EditorList which, const char* name, const char* caption,
                      const char* section);
    wxPanel* makeProblems(wxWindow* parent);
    void bindTimers();
    void bindList(EditorListView& list);
    void onItem(int id, Action action);

    /// Does what the user asked for and shows the outcome, unless something else is still being done.
    void act(const Action& action);
    void showDocument();
    void showProblems();
    void goToProblem();
    void goTo(DocumentPlace place);
    void showNewDocument();
    void showOpened();
    void keepSoon();
    void lookForNotices();
    void showNotices();
    void showOffer(const KeptOffer& offer);
    void showLossNotice(const std::string& text);
    void showPluginNotice(const std::string& text);
    void showStatus();

    void showContextMenu(EditorListView& list, wxContextMenuEvent& event);
    void handleKey(EditorListView& list, wxKeyEvent& event);
    void addTo(EditorListView& list);
    void edit();
    using Step = DocumentPlace (*)();
    void stepThrough(Step step);
    void onGroups(EditorListView& list, GroupAction action);
    static wxTextCtrl* textInUse();
    void onText(void (wxTextCtrl::*ofText)(), GroupAction action);
    void onLines(EditorListView& list, const std::function<LineNumbers()>& action);
    void updateArrows();
    void closing(wxCloseEvent& event);

    EditorListView& activeList() const;
    EditorListView& listInUse() const { return *(listInUse_ ? listInUse_ : listCommand_); }
    EditorListView* viewOf(EditorList which) const;
    DocumentPlace selectedPlace() const;
    void selectAlone(DocumentPlace place);
    std::array<EditorListView*, 3> lists() const { return {listInclude_, listVar_, listCommand_}; }

    wxPanel* parts_;  // the Tab key needs it
    wxMenu* mnuRecent_ = nullptr;
    wxTextCtrl* profileName_ = nullptr;
    EditorListView* listInclude_ = nullptr;
    EditorListView* listVar_ = nullptr;
    EditorListView* listCommand_ = nullptr;
    EditorListView* listInUse_ = nullptr;  // had the keys last
    std::vector<std::unique_ptr<GroupArrows>> arrows_;
    std::unique_ptr<EditorFind> find_;
    ProblemList* listProblems_ = nullptr;
    NoticeLine* notice_ = nullptr;
    wxTimer ForTimer_;
    wxTimer tmrEdit_;
    wxTimer tmrCheck_;  // runs once nothing has changed for a moment
    wxTimer tmrKeep_;   // runs while something is to be kept
    bool canKeep_ = true;
    bool busy_ = false;
    std::optional<KeptOffer> offer_;
    std::string loss_;  // what saving drops, until the user knows
};

}  // namespace brasquelin
