// The program's windows by their names.
#pragma once

namespace brasquelin {

class WxDesktop;

/// Tells the desktop how each window is made.
void registerWindows(WxDesktop& windows);

}  // namespace brasquelin
