// The prompt windows `frmVarProfile` and `frmVarFunction`: a form drawn row by row, OK and Cancel.
#pragma once

#include <memory>
#include <vector>

#include "platform/wx/programDialog.h"
#include "platform/wx/twipScale.h"
#include "vars/promptForm.h"
#include "vars/promptRowView.h"

class wxPaintEvent;
class wxScrolledWindow;

namespace brasquelin {

class FrmVarForm : public ProgramDialog {
  public:
    explicit FrmVarForm(std::shared_ptr<PromptForm> form);

  protected:
    void closing(bool byUser) override;

  private:
    void makeRows();
    void makeButtons();
    void confirm();
    void setFirstSize();
    void layOut();
    void paintBackdrops(wxPaintEvent& event);
    void focusFirst();
    int designWidth() const;
    int missingNameWidth() const;
    ExtraWidths extraWidths() const;

    std::shared_ptr<PromptForm> form_;
    wxScrolledWindow* rowsArea_ = nullptr;
    wxButton* cmdCancel_ = nullptr;
    wxButton* cmdOK_ = nullptr;
    TwipScale scale_;
    std::vector<std::unique_ptr<PromptRowView>> rows_;
};

}  // namespace brasquelin
