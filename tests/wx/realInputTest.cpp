// What only keys and clicks show that come from the system.
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include "wx/windowTest.h"

namespace brasquelin {
namespace {

using RealInput = WindowTest;

wxPoint middle(const wxSize& size) {
    return {size.x / 2, size.y / 2};
}

TEST_F(RealInput, EscapeDeclinesAQuestion) {
    modals.Unregister();
    wxTimer pressing;
    pressing.Bind(wxEVT_TIMER, [](wxTimerEvent&) {
        wxUIActionSimulator user;
        user.MouseMove(middle(wxGetClientDisplayRect().GetSize()));  // without a window manager it is what has the keys
        user.Char(WXK_ESCAPE);
    });
    pressing.Start(100);
    EXPECT_FALSE(windows.askYesNo("Really?", "Erase ?"));
    pressing.Stop();
    modals.Register();
}

}  // namespace
}  // namespace brasquelin
