// A hidden window whose only job is to measure the frame that the desktop puts around windows.
#pragma once

#include <wx/frame.h>

namespace brasquelin {

class FrmDetectBorder : public wxFrame {
  public:
    FrmDetectBorder();
};

/// Loads the window, waits for its measurement and unloads it.
void detectBorders();

}  // namespace brasquelin
