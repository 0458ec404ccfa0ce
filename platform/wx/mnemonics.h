// The underlined letters of buttons and boxes, wherever in a window the focus is.
#pragma once

class wxTopLevelWindow;

namespace brasquelin {

/// Windows itself looks for them only in the innermost panel that has the focus. Covers what the window has by now and
/// gets later.
void bindMnemonics(wxTopLevelWindow& window);

}  // namespace brasquelin
