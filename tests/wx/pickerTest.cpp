#include <wx/listbox.h>

#include "app/jobList.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

class Picker : public WindowTest {};

TEST_F(Picker, ListsTitlesAndLoadsTheSelectedFile) {
    writeProfile("profiles/a.bqp", "First", "", "a");
    writeProfile("profiles/b.bqp", "Second", "", "b");
    wxFrame& frame = start();
    const std::vector<ModalStep> waysToLoad{
        [](wxDialog& picker) { click(picker, "cmdLoad"); },
        [](wxDialog& picker) { doubleClick(picker, "profileName"); },
        [](wxDialog& picker) { pressKey(*findControl(picker, "profileName"), WXK_RETURN); }};
    for (const auto& load : waysToLoad) {
        next([&](wxDialog& picker) {
            EXPECT_EQ("Add profile", picker.GetTitle());
            EXPECT_EQ("Load Profile", findControl(picker, "cmdLoad")->GetLabel());
            EXPECT_EQ("First", control<wxListBox>(picker, "profileName").GetStringSelection());
            choose(picker, "profileName", 1);
            load(picker);
        });
        chooseFromMenu(frame, "Add Profile");
        EXPECT_EQ(nullptr, loadedWindow("frmAddProfile"));
    }
    EXPECT_EQ((Lines{"echo b", "echo b", "echo b"}), jobList.lines());
}

TEST_F(Picker, NothingToLoadKeepsTheWindowOpen) {
    wxFrame& frame = start();
    next([](wxDialog& picker) {
        EXPECT_EQ("Add Function", picker.GetTitle());
        EXPECT_EQ("Load library", findControl(picker, "cmdLoad")->GetLabel());
        EXPECT_EQ(0U, control<wxListBox>(picker, "functionName").GetCount());
        click(picker, "cmdLoad");
        EXPECT_TRUE(picker.IsModal());
        pressKey(picker, WXK_ESCAPE);
    });
    chooseFromMenu(frame, "Add Library");
    EXPECT_EQ(Lines{"frmAddFunction"}, modals.shown);
}

}  // namespace
}  // namespace brasquelin
