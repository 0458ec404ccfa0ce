// What screen readers and other assistive tools call a control. Where the system takes that from the labels itself
// (Windows), these do nothing.
#pragma once

class wxString;
class wxTopLevelWindow;
class wxWindow;

namespace brasquelin {

/// For a control that no label stands beside, such as a list; one that draws its lines itself is made known as a list.
void nameForAssistiveTools(wxWindow& control, const wxString& name);

/// For a window that is about to be shown: each control without a name gets that of the label in front of it or above
/// it, else its hint.
void nameControlsByLabels(wxTopLevelWindow& window);

}  // namespace brasquelin
