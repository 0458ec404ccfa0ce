// The least that a program with a window of this toolkit does: what the start of the real one is measured against.
#include <wx/app.h>
#include <wx/frame.h>

namespace {

class EmptyWindow : public wxApp {
  public:
    bool OnInit() override {
        (new wxFrame(nullptr, wxID_ANY, "Empty"))->Show();
        return true;
    }
};

}  // namespace

wxIMPLEMENT_APP(EmptyWindow);
