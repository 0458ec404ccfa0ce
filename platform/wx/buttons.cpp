#include "platform/wx/buttons.h"

#include <wx/bmpbuttn.h>
#include <wx/sizer.h>

#include <utility>

#include "platform/wx/pictures.h"

namespace brasquelin {

namespace {

wxButton* pressedFor(wxButton* button, Press press) {
    button->Bind(wxEVT_BUTTON, [press = std::move(press)](wxCommandEvent&) { press(); });
    return button;
}

}  // namespace

wxButton* makeButton(wxWindow* parent, const char* caption, const char* name, Press press) {
    auto* button =
        new wxButton(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    return pressedFor(button, std::move(press));
}

wxButton* makePictureButton(wxWindow* parent, Picture look, int side, const char* name, const char* tip, Press press) {
    auto* button = new wxBitmapButton(parent, wxID_ANY, picture(look, side), wxDefaultPosition, wxDefaultSize, 0,
                                      wxDefaultValidator, name);
    button->SetToolTip(tip);
    return pressedFor(button, std::move(press));
}

wxButton* makeBrowseButton(wxWindow* parent, const wxString& name, const char* tip, Press press) {
    auto* button = new wxButton(parent, wxID_ANY, "...", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT,
                                wxDefaultValidator, name);
    button->SetToolTip(tip);
    return pressedFor(button, std::move(press));
}

wxButton* makeCancelButton(wxWindow* parent, const char* caption, const char* name) {
    return new wxButton(parent, wxID_CANCEL, caption, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
}

wxSizer* makeButtonRow(wxButton* cancel, wxButton* accept) {
    accept->SetDefault();
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->AddStretchSpacer();
    row->Add(cancel, wxSizerFlags().Border(wxRIGHT));
    row->Add(accept);
    return row;
}

}  // namespace brasquelin
