// What the main window does with files that are dropped on it.
#pragma once

#include <wx/dnd.h>
#include <wx/window.h>

#include <string>
#include <vector>

namespace brasquelin {

/// Opens the files behind the event, as openDropped. False when a dialog is open: it would get under it.
bool dropFiles(wxWindow& window, const std::vector<std::string>& paths);

class FileDropTarget : public wxFileDropTarget {
  public:
    explicit FileDropTarget(wxWindow& window) : window_(window) {}

    /// The files are opened once the drop is over: whoever dragged them must not wait for a prompt. Nothing is taken
    /// while a dialog is open; while a file is being run, that is told.
    bool OnDropFiles(wxCoord x, wxCoord y, const wxArrayString& names) override;

  private:
    wxWindow& window_;
};

}  // namespace brasquelin
