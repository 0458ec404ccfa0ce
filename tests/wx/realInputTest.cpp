// What only keys and clicks show that come from the system.
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include "app/jobList.h"
#include "app/openFile.h"
#include "platform/wx/dropDown.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

using RealInput = WindowTest;

wxPoint middle(const wxSize& size) {
    return {size.x / 2, size.y / 2};
}

void clickOn(const wxWindow& target) {
    wxUIActionSimulator user;
    user.MouseMove(target.ClientToScreen(middle(target.GetClientSize())));
    user.MouseClick();
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

TEST_F(RealInput, DropDownsOpenByAClickAndTakeTyping) {
    start();
    next([](wxDialog& prompt) {
        auto& closed = control<DropDown>(prompt, "listType");
        auto& opened = control<DropDown>(prompt, "listType(1)");
        bool open = false;
        const auto follow = [&open](bool opens) {
            return [&open, opens](wxCommandEvent& event) {
                open = opens;
                event.Skip();
            };
        };
        closed.Bind(wxEVT_COMBOBOX_DROPDOWN, follow(true));
        closed.Bind(wxEVT_COMBOBOX_CLOSEUP, follow(false));
        clickOn(closed);
        EXPECT_TRUE(becomesTrue([&] { return open; }));
        wxUIActionSimulator().Char(WXK_RETURN);
        EXPECT_TRUE(becomesTrue([&] { return !open; }));
        EXPECT_TRUE(prompt.IsShown()) << "Enter only closes the entries";
        wxUIActionSimulator().Char('b');
        EXPECT_TRUE(becomesTrue([&] { return closed.GetStringSelection() == "bzip2"; }));
        EXPECT_FALSE(open);
        opened.SetFocus();
        opened.Popup();
        wxUIActionSimulator().Char('h');
        EXPECT_TRUE(becomesTrue([&] { return opened.GetStringSelection() == "high"; }));
        click(prompt, "cmdOK");  // GTK still shows the entries
    });
    openPicked(writeProfile("profiles/a.bqp", "Choices",
                            "format\n.Type=List(gzip||bzip2)\n.Info=i\n.Default=1\n"
                            "level\n.Type=Comb(low[1]||high[9])\n.Info=i\n.Default=1\n",
                            "$format$ $level$"));
    EXPECT_EQ("echo bzip2 9", jobList.line(0));
}

}  // namespace
}  // namespace brasquelin
