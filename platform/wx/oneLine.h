// Text boxes of one line that stay so, whatever is pasted.
#pragma once

#include <functional>
#include <string>
#include <string_view>

class wxString;
class wxTextCtrl;
class wxWindow;

namespace brasquelin {

/// A box that is found by its name. `changed` gets its text, on one line, whenever it has changed.
wxTextCtrl* makeTextBox(wxWindow* parent, const wxString& name, std::string_view text,
                        std::function<void(std::string)> changed = {});

/// A line break that is pasted, dropped or set becomes a blank. To be called behind binding the box's own handlers,
/// which then see only what is on one line.
void keepOnOneLine(wxTextCtrl& box);

/// What would not be seen in the box's text stands there as signs. `text` follows what the user does and keeps what the
/// signs stand for; the box, made with `visibleText` of it, does not outlive it.
void keepExact(wxTextCtrl& box, std::string& text);

}  // namespace brasquelin
