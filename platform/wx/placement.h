// Windows kept on the screen, each over the one it was opened from.
#pragma once

class wxRect;
class wxTopLevelWindow;
class wxWindow;

namespace brasquelin {

/// The parent of a dialog that is about to be made: the newest visible window. Null when there is none.
wxWindow* newestWindow();

/// Makes the window no larger than the work area of its screen and centres it, over the newest visible window of the
/// program where there is one.
void placeOnScreen(wxTopLevelWindow& window);

/// The same at a place that it once had, as far as that is on a screen.
void placeAt(wxTopLevelWindow& window, const wxRect& place);

/// For a window that places itself: centred all the same when it is shown, whatever the window manager makes of it.
void keepCentred(wxTopLevelWindow& window);

/// The frame that the desktop puts around a window, in pixels. 9999: not measured yet.
struct BorderSizes {
    int horizontal = 9999;
    int vertical = 9999;
};
extern BorderSizes borderSizes;

}  // namespace brasquelin
