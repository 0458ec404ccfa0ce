// The buttons of the program's windows; each is found by its name.
#pragma once

#include <wx/button.h>

#include <functional>

#include "platform/picture.h"

class wxSizer;

namespace brasquelin {

using Press = std::function<void()>;

wxButton* makeButton(wxWindow* parent, const char* caption, const char* name, Press press);

/// A button with a picture for a caption. `side` is its width and height on a display without scaling.
wxButton* makePictureButton(wxWindow* parent, Picture look, int side, const char* name, const char* tip, Press press);

/// The small button "..." beside a box.
wxButton* makeBrowseButton(wxWindow* parent, const wxString& name, const char* tip, Press press);

/// The button that Escape presses, too. It does what the close box of its dialog does.
wxButton* makeCancelButton(wxWindow* parent, const char* caption = "Cancel", const char* name = "cmdCancel");

/// The buttons at the end of a dialog; Enter presses `accept`.
wxSizer* makeButtonRow(wxButton* cancel, wxButton* accept);

}  // namespace brasquelin
