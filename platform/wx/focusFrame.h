// A frame around a control, in the colour of selections while the control has the keys.
#pragma once

#include <wx/panel.h>

namespace brasquelin {

/// To be made before the control, as its parent, and to be placed instead of it.
class FocusFrame : public wxPanel {
  public:
    explicit FocusFrame(wxWindow* parent);
    /// Once the control is there. It should have no border of its own.
    void hold(wxWindow& control);

  private:
    void paint();

    bool hasFocus_ = false;
};

}  // namespace brasquelin
