// The bar below a list in which one types what is looked for in it.
#pragma once

#include <wx/panel.h>

#include <functional>
#include <string>

class wxStaticText;
class wxTextCtrl;

namespace brasquelin {

class FindBar : public wxPanel {
  public:
    struct Actions {
        std::function<void(const std::string& text)> search;  // whenever the text has changed
        std::function<void()> forward;                        // Enter, or the Down key
        std::function<void()> back;                           // Shift+Enter, or the Up key; may be missing
        std::function<void()> close;                          // Escape, or the button
    };

    /// To be given a place in the parent's sizer. With a way back it has buttons for both ways.
    FindBar(wxWindow* parent, const char* closeCaption, Actions actions);

    /// Shows the bar, its text selected.
    void open();
    /// Hides the bar, its text gone.
    void close();
    void tellFound(const std::string& text);

  private:
    void handleKey(wxKeyEvent& event);

    Actions actions_;
    wxTextCtrl* txtFind_;
    wxStaticText* lblFound_;
};

}  // namespace brasquelin
