#include "app/registerWindows.h"

#include "app/frmAbout.h"
#include "app/frmAddFunction.h"
#include "app/frmAddProfile.h"
#include "app/frmDetectBorder.h"
#include "app/frmMain.h"
#include "app/frmWait.h"
#include "config/frmOption.h"
#include "editor/frmAddCommand.h"
#include "editor/frmAddVar.h"
#include "editor/frmCreateProfile.h"
#include "editor/inputForm.h"
#include "platform/wx/wxDesktop.h"
#include "vars/frmVarFunction.h"
#include "vars/frmVarProfile.h"

namespace brasquelin {

namespace {

template <typename Window>
wxTopLevelWindow* make() {
    return new Window;
}

}  // namespace

void registerWindows(WxDesktop& windows) {
    windows.registerWindow("frmMain", make<FrmMain>);
    windows.registerWindow("frmAddProfile", make<FrmAddProfile>);
    windows.registerWindow("frmAddFunction", make<FrmAddFunction>);
    windows.registerWindow("frmVarProfile", make<FrmVarProfile>);
    windows.registerWindow("frmVarFunction", make<FrmVarFunction>);
    windows.registerWindow("frmWait", make<FrmWait>);
    windows.registerWindow("frmOption", make<FrmOption>);
    windows.registerWindow("frmAbout", make<FrmAbout>);
    windows.registerWindow("frmCreateProfile", make<FrmCreateProfile>);
    windows.registerWindow("frmAddVar", make<FrmAddVar>);
    windows.registerWindow("frmAddCommand", make<FrmAddCommand>);
    windows.registerWindow("inputForm", make<InputForm>);
    windows.registerWindow("frmDetectBorder", make<FrmDetectBorder>);
}

}  // namespace brasquelin
