// Windows kept on the screen.
#pragma once

class wxTopLevelWindow;

namespace brasquelin {

/// Makes the window no larger than the work area of its screen and centres it, over the active window of the program
/// where there is one.
void placeOnScreen(wxTopLevelWindow& window);

/// The frame that the desktop puts around a window, in pixels. 9999: not measured yet.
struct BorderSizes {
    int horizontal = 9999;
    int vertical = 9999;
};
extern BorderSizes borderSizes;

}  // namespace brasquelin
