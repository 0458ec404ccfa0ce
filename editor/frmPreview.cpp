#include "editor/frmPreview.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

#include "editor/editorState.h"
#include "editor/problemList.h"
#include "platform/wx/buttons.h"
#include "platform/wx/lineList.h"
#include "platform/wx/wxText.h"
#include "text/raised.h"

namespace brasquelin {

/// Lines that a plugin would change stand on a coloured ground.
class PreviewList : public LineList {
  public:
    PreviewList(wxWindow* parent, const char* name) : LineList(parent, name, wxBORDER_THEME) {
        marked_.SetBackgroundColour(groundOf(Severity::hint, *this));
        marked_.SetTextColour(colourOf(Severity::hint, *this));
    }

    void show(std::vector<DryRunLine> lines) {
        selectLine({});
        lines_ = std::move(lines);
        showLines();
    }

  protected:
    std::size_t lineCount() const override { return lines_.size(); }
    std::string_view line(std::size_t index) const override { return lines_[index].text; }
    std::optional<std::size_t> longestLine() const override {
        if (lines_.empty()) return std::nullopt;
        const auto shorter = [](const auto& left, const auto& right) { return left.text.size() < right.text.size(); };
        return static_cast<std::size_t>(std::max_element(lines_.begin(), lines_.end(), shorter) - lines_.begin());
    }
    wxItemAttr* OnGetItemAttr(long item) const override {
        const auto index = static_cast<std::size_t>(item);
        return index < lines_.size() && lines_[index].needsPlugin ? &marked_ : nullptr;
    }

  private:
    std::vector<DryRunLine> lines_;
    mutable wxItemAttr marked_;
};

FrmPreview::FrmPreview() : ProgramDialog("frmPreview", "Preview"), preview_(editorState.document) {
    listPreview_ = new PreviewList(this, "listPreview");
    listNotes_ = new PreviewList(this, "listNotes");
    listNotes_->SetMinSize(FromDIP(wxSize(200, 70)));
    summary_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "summary");
    const auto below = wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM);
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(summary_, wxSizerFlags().Expand().DoubleBorder(wxALL));
    all->Add(listPreview_, wxSizerFlags(below).Proportion(4));
    all->Add(listNotes_, wxSizerFlags(below).Proportion(1));
    all->Add(makeButtons(), below);
    SetSizer(all);
    fit(FromDIP(wxSize(700, 480)));
    showPreview();
    listPreview_->SetFocus();
}

wxSizer* FrmPreview::makeButtons() {
    cmdValues_ = makeButton(this, "&Other values ...", "cmdValues", [this] { act([this] { preview_.askValues(); }); });
    cmdPlugins_ =
        makeButton(this, "Run the &plugins", "cmdPlugins", [this] { act([this] { preview_.runWithPlugins(); }); });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(cmdValues_, wxSizerFlags().Border(wxRIGHT));
    row->Add(cmdPlugins_);
    row->AddStretchSpacer();
    row->Add(makeCancelButton(this, "Close", "cmdClose"));
    return row;
}

void FrmPreview::act(const std::function<void()>& action) {
    if (busy_) return;
    {
        const Raised atWork(busy_);
        action();
    }
    showPreview();
}

void FrmPreview::showPreview() {
    summary_->SetLabelText(toWx(preview_.summary()));
    listPreview_->show(preview_.lines());
    std::vector<DryRunLine> notes;
    for (const auto& note : preview_.notes()) notes.push_back({note, false});
    listNotes_->Show(!notes.empty());
    listNotes_->show(std::move(notes));
    cmdValues_->Enable(preview_.hasVariables());
    cmdPlugins_->Enable(preview_.leftPrograms());
    Layout();
}

void FrmPreview::closing(bool byUser) {
    if (!busy_) ProgramDialog::closing(byUser);
}

}  // namespace brasquelin
