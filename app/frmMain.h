// The main window: the job list and the commands around it.
#pragma once

#include <wx/frame.h>
#include <wx/timer.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "app/mainCommands.h"

class wxStaticText;
class wxTextCtrl;

namespace brasquelin {

class JobListControl;
class NoticeLine;
class RememberedPlace;
class JobListView;

class FrmMain : public wxFrame {
  public:
    FrmMain();
    ~FrmMain() override;

  private:
    void makePlace();
    void makeMenu();
    void makeToolbar();
    void makeLine();
    void bindCommands();
    void showChanges();
    void run(const MainCommand& command);
    void showMenu(wxContextMenuEvent& event);
    void closing(wxCloseEvent& event);

    void makeStatus();
    void showStatus();
    void keepLater();
    void offerKept();

    std::unique_ptr<RememberedPlace> place_;
    JobListView* JobList_ = nullptr;
    std::unique_ptr<JobListControl> jobs_;
    wxTextCtrl* txtLine_ = nullptr;  // the selected line as a whole
    std::optional<std::size_t> shownLine_;
    std::uint64_t shownRevision_ = 0;
    std::vector<wxStaticText*> status_;
    NoticeLine* noticeLine_ = nullptr;  // not before there is something to be told
    bool hasOffered_ = false;
    wxTimer keepTimer_;
    std::uint64_t keptRevision_ = 0;  // of the list that the timer was started for
};

}  // namespace brasquelin
