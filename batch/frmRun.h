// The window of a run: its jobs, what they print, and what can be done about them.
#pragma once

#include <wx/frame.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "batch/outputCopy.h"
#include "batch/runSession.h"

class wxAppProgressIndicator;
class wxButton;
class wxCheckBox;
class wxGauge;
class wxPanel;
class wxRadioButton;
class wxSizer;
class wxStaticText;
class wxTextCtrl;

namespace brasquelin {

class OutputView;
class RunRowList;

class FrmRun : public wxFrame {
  public:
    /// `preferences` is the path of the file that keeps what the window remembers. Closing the window ends the program;
    /// the runner goes on unless the user wants it stopped.
    FrmRun(std::unique_ptr<RunLink> link, StartRunner startRunner, std::string preferences);
    ~FrmRun() override;

  private:
    wxSizer* makeMessage(wxWindow* parent);
    wxWindow* makePanes(wxWindow* parent);
    wxWindow* makeOutput(wxWindow* parent);
    wxSizer* makeProgress(wxWindow* parent);
    wxSizer* makeRunButtons(wxWindow* parent);
    wxSizer* makeWindowButtons(wxWindow* parent);
    void bindEvents();

    void tick();
    void showChanges();
    void showProgress();
    void showCommand();
    void showOutput();
    void enableButtons();
    void selectionChanged();
    void runEnded();
    void askToResume();
    void runAgain(const std::vector<std::size_t>& jobs);
    void runFromSelected();
    void showMessage(const std::string& text, bool offerToGoOn);
    void breakMessage();
    void layOutMessage();
    void showMenu(wxContextMenuEvent& event);
    void copyLine();
    void copyOutput();
    void saveOutput();
    void stepCopy();
    void closing(wxCloseEvent& event);

    /// Where what is shown as output stands in the output file.
    struct Piece {
        std::string file;
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
    };
    Piece shownPiece() const;

    RunSession session_;
    std::string preferences_;
    std::unique_ptr<OutputCopy> copy_;
    std::unique_ptr<wxAppProgressIndicator> taskBar_;
    wxTimer timer_;
    std::string messageText_;
    wxStopWatch sinceProgress_;
    std::size_t shownEnds_ = 0;
    std::optional<std::size_t> runningBefore_;  // at the last look
    bool following_ = true;                     // the running job is selected
    bool asking_ = false;                       // a box is open
    bool askedToResume_ = false;

    RunRowList* JobRows_ = nullptr;
    wxTextCtrl* txtCommand_ = nullptr;
    wxRadioButton* optRun_ = nullptr;
    OutputView* txtOutput_ = nullptr;
    wxPanel* message_ = nullptr;
    wxStaticText* lblMessage_ = nullptr;
    wxButton* cmdGoOn_ = nullptr;
    wxGauge* gauge_ = nullptr;
    wxStaticText* lblState_ = nullptr;
    wxButton* cmdStopAfter_ = nullptr;
    wxButton* cmdStopNow_ = nullptr;
    wxButton* cmdRunFailed_ = nullptr;
    wxButton* cmdRunFrom_ = nullptr;
    wxButton* cmdCopyOutput_ = nullptr;
    wxButton* cmdSaveOutput_ = nullptr;
    wxCheckBox* chkCloseWhenWell_ = nullptr;
};

/// Shows the window; to be called within the event loop.
void showRunWindow(std::unique_ptr<RunLink> link, StartRunner startRunner, const std::string& preferences);

}  // namespace brasquelin
