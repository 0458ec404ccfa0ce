// A line in a window that tells something which can wait, with buttons for what can be done about it. It asks nothing:
// the window goes on as if it were not there.
#pragma once

#include <wx/panel.h>

#include <string_view>
#include <vector>

#include "platform/wx/buttons.h"

class wxBoxSizer;
class wxStaticText;

namespace brasquelin {

struct NoticeButton {
    const char* caption;
    const char* name;
    Press press;  // the line is hidden then
};

class NoticeLine : public wxPanel {
  public:
    /// Hidden until it tells something. To be given a place in the parent's sizer.
    NoticeLine(wxWindow* parent, const char* name);

    /// In place of what it has told so far; nothing when it tells this text already.
    void tell(std::string_view text, const std::vector<NoticeButton>& buttons);
    void hide();

  private:
    void arrange();

    wxStaticText* text_;
    wxBoxSizer* buttons_;
};

}  // namespace brasquelin
