// A window that comes up where it was and as large as it was.
#pragma once

#include <wx/gdicmn.h>

#include <string>

class wxTopLevelWindow;

namespace brasquelin {

/// Follows a window that the user moves and resizes, and remembers its place among the windows' preferences.
class RememberedPlace {
  public:
    /// `key` is the window's line in the file. To be made before the window's controls, once it has its usual size.
    /// Puts the window where it was, or centres it. A place that is not on a screen is corrected.
    RememberedPlace(wxTopLevelWindow& window, std::string key);
    /// Writes the place down if it is another one; a failure is ignored. A window that was never shown has none.
    void save() const;

  private:
    void follow();

    wxTopLevelWindow& window_;
    std::string key_;
    std::string saved_;
    wxRect place_;  // while it is neither maximized nor iconized
    bool isMaximized_ = false;
    bool isKnown_ = false;
};

}  // namespace brasquelin
