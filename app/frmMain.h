// The main window: the job list and the commands around it.
#pragma once

#include <wx/frame.h>

#include <string>

#include "app/mainCommands.h"

namespace brasquelin {

class FrmJobList;

class FrmMain : public wxFrame {
  public:
    FrmMain();
    ~FrmMain() override;

  private:
    void makePlace();
    void makeMenu();
    void makeToolbar();
    void run(const MainCommand& command);
    void showMenu(wxContextMenuEvent& event);
    void closing(wxCloseEvent& event);

    FrmJobList* JobList_ = nullptr;
};

/// Loads the main window, starts up with the command line, and shows the window unless start-up has ended the program.
void startWithMainWindow(const std::string& commandLine);

}  // namespace brasquelin
