// Text boxes of one line that stay so, whatever is pasted.
#pragma once

class wxTextCtrl;

namespace brasquelin {

/// A line break that is pasted, dropped or set becomes a blank. To be called behind binding the box's own handlers,
/// which then see only what is on one line.
void keepOnOneLine(wxTextCtrl& box);

}  // namespace brasquelin
