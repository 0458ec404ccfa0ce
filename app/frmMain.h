// The main window: the job list and the commands around it.
#pragma once

#include <wx/frame.h>

#include "app/mainCommands.h"

namespace brasquelin {

class JobListView;

class FrmMain : public wxFrame {
  public:
    FrmMain();
    ~FrmMain() override;

  private:
    void makePlace();
    void makeMenu();
    void makeToolbar();
    void bindCommands();
    void run(const MainCommand& command);
    void showMenu(wxContextMenuEvent& event);
    void closing(wxCloseEvent& event);

    JobListView* JobList_ = nullptr;
};

}  // namespace brasquelin
