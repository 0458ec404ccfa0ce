// What the user does to the job list in the main window: commands, keys, dragging, finding.
#pragma once

#include <vector>

#include "app/jobCommands.h"

class wxFrame;
class wxKeyEvent;
class wxMenu;
class wxSizer;

namespace brasquelin {

class FindBar;
class JobListView;

class JobListControl {
  public:
    /// `place` holds the list; the find bar comes below it.
    JobListControl(wxFrame& frame, JobListView& list, wxSizer& place);

    /// A menu "Edit" for the menu bar.
    wxMenu* makeMenu();
    /// For the menu bar's other menu: what is done with the list as a whole.
    void appendFileCommands(wxMenu& menu);
    /// All commands, each enabled if it can do something now.
    void appendCommands(wxMenu& menu) const;

  private:
    void bindCommands();
    void handleKey(wxKeyEvent& event);
    void enableCommands(wxMenu& menu) const;
    JobSelection selection() const;
    void run(JobCommandKind command);
    void show(const Jobs& changed, JobCommandKind by);
    void letJobsBeDragged();
    void openFind();
    std::size_t placeBehindList() const;
    void closeFind();
    void find(const std::string& text);

    wxFrame& frame_;
    JobListView& list_;
    wxSizer& place_;
    FindBar* findBar_ = nullptr;  // not before it is wanted
    std::vector<wxMenu*> menus_;  // of the menu bar
};

}  // namespace brasquelin
