// What the program's dialogs have in common.
#pragma once

#include <wx/dialog.h>

#include <functional>
#include <string_view>

#include "platform/wx/placement.h"

namespace brasquelin {

/// A resizable dialog that is found by its name. Enter presses its default button, Escape its Cancel button or its
/// close box; the Cancel button does what the close box does.
class ProgramDialog : public wxDialog {
  public:
    /// The dialog belongs to `parent`: it stays in front of it and goes with it.
    ProgramDialog(std::string_view name, std::string_view caption, wxWindow* parent = newestWindow());

    /// Ends the modal loop, or hides and destroys a window that was shown modelessly.
    void closeWindow();

    /// Closes the window and does the step when its loop has ended and its event handlers have returned.
    void closeAndThen(std::function<void()> step);

    /// For whoever showed the window modally: the step that is due now.
    std::function<void()> takeLastStep();

  protected:
    /// The close box was used or the window is unloaded (`byUser` false).
    virtual void closing(bool byUser);

    /// Sets the minimum size to what the sizer needs, the size within the frame to at least `wanted`, and places the
    /// window.
    void fit(const wxSize& wanted);

  private:
    void fitMinimum();
    void handleKey(wxKeyEvent& event);
    bool pressDefaultButton();

    std::function<void()> lastStep_;
};

}  // namespace brasquelin
