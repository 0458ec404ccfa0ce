// Shows what the profile in the editor would put into the batch file.
#pragma once

#include <functional>

#include "editor/preview.h"
#include "platform/wx/programDialog.h"

class wxSizer;
class wxStaticText;

namespace brasquelin {

class PreviewList;

class FrmPreview : public ProgramDialog {
  public:
    FrmPreview();

  protected:
    void closing(bool byUser) override;

  private:
    wxSizer* makeButtons();
    /// Nothing else can be done meanwhile: events come through while plugins run.
    void act(const std::function<void()>& action);
    void showPreview();

    DocumentPreview preview_;
    PreviewList* listPreview_ = nullptr;
    PreviewList* listNotes_ = nullptr;
    wxStaticText* summary_ = nullptr;
    wxButton* cmdValues_ = nullptr;
    wxButton* cmdPlugins_ = nullptr;
    bool busy_ = false;
};

}  // namespace brasquelin
