#include "app/frmAbout.h"

#include <wx/hyperlink.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "platform/desktop.h"
#include "platform/wx/buttons.h"
#include "platform/wx/pictures.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

constexpr const char* webPage = "https://www.brasquelin.example/";
constexpr const char* mailAddress = "info@brasquelin.example";

wxHyperlinkCtrl* makeLink(wxWindow* parent, const char* text, const wxString& target, const char* name) {
    auto* link = new wxHyperlinkCtrl(parent, wxID_ANY, text, target, wxDefaultPosition, wxDefaultSize,
                                     wxHL_ALIGN_LEFT | wxBORDER_NONE, name);
    link->Bind(wxEVT_HYPERLINK, [](wxHyperlinkEvent& event) { desktop().openLink(fromWx(event.GetURL())); });
    return link;
}

}  // namespace

FrmAbout::FrmAbout() : ProgramDialog("frmAbout", "About Brasquelin") {
    auto* icon = new wxStaticBitmap(this, wxID_ANY, picture(Picture::program, 64));
    auto* name = new wxStaticText(this, wxID_ANY, "Brasquelin " BRASQUELIN_VERSION);
    name->SetFont(name->GetFont().Bold().Scaled(1.4F));
    auto* purpose =
        new wxStaticText(this, wxID_ANY, "Builds command lines from templates\nand runs them as one batch.");
    auto* close = makeCancelButton(this, "Close", "cmdClose");
    close->SetDefault();
    close->SetFocus();

    auto* texts = new wxBoxSizer(wxVERTICAL);
    texts->Add(name, wxSizerFlags().Border(wxBOTTOM));
    texts->Add(purpose, wxSizerFlags().DoubleBorder(wxBOTTOM));
    texts->Add(makeLink(this, webPage, webPage, "webPage"));
    texts->Add(makeLink(this, mailAddress, wxString("mailto:") + mailAddress, "mailAddress"));
    auto* top = new wxBoxSizer(wxHORIZONTAL);
    top->Add(icon, wxSizerFlags().DoubleBorder(wxRIGHT));
    top->Add(texts, wxSizerFlags(1).Expand());
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(top, wxSizerFlags(1).Expand().TripleBorder(wxALL));
    all->Add(close, wxSizerFlags().Right().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    SetSizer(all);
    fit(FromDIP(wxSize(360, 0)));
}

}  // namespace brasquelin
