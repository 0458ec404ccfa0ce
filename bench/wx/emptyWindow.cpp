// The least that a program with a window of this toolkit does: what the start of the real one is measured against.
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/panel.h>

namespace {

class EmptyWindow : public wxApp {
  public:
    bool OnInit() override {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "Empty", wxDefaultPosition, wxSize(1060, 560));
        new wxPanel(frame);
        return frame->Show();
    }
};

}  // namespace

wxIMPLEMENT_APP(EmptyWindow);
