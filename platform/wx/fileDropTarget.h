// Files that are dropped on a window.
#pragma once

#include <wx/dnd.h>

#include <functional>
#include <string>
#include <vector>

namespace brasquelin {

/// True while a dialog waits for an answer: what a drop would open would get under it.
bool dialogIsOpen();

class FileDropTarget : public wxFileDropTarget {
  public:
    /// False when the files are not taken. Whoever dragged them waits for the answer: the work itself comes later.
    using Take = std::function<bool(const std::vector<std::string>& paths)>;
    explicit FileDropTarget(Take take);

    bool OnDropFiles(wxCoord x, wxCoord y, const wxArrayString& names) override;

  private:
    Take take_;
};

}  // namespace brasquelin
