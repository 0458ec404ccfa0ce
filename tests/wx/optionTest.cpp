#include <wx/listbox.h>
#include <wx/textctrl.h>

#include "config/configFile.h"
#include "platform/paths.h"
#include "platform/wx/wxText.h"
#include "support/scratchDirectory.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

class Options : public WindowTest {
  protected:
    void open(ModalStep step) {
        next(std::move(step));
        windows.showWindow(ProgramWindow::options, true);
    }
};

std::vector<std::string> entries(wxWindow& window) {
    std::vector<std::string> texts;
    for (const auto& entry : control<wxListBox>(window, "List1").GetStrings()) texts.emplace_back(entry.utf8_string());
    return texts;
}

TEST_F(Options, EditsAndSavesTheConfiguration) {
    start();
    modals.textAnswers = {"tool", "gcc", "Other", "x", "clang"};
    open([&](wxDialog& window) {
        for (const char* needsSelection : {"Command7", "Command8"}) {
            EXPECT_FALSE(findControl(window, needsSelection)->IsThisEnabled());
        }
        pressKey(*findControl(window, "List1"), WXK_DELETE);
        doubleClick(window, "List1");
        EXPECT_TRUE(modals.textQuestions.empty());
        EXPECT_EQ(exeDirectory() + "/profiles", fromWx(control<wxTextCtrl>(window, "Text2").GetValue()));
        type(window, "Text1", "/new/libraries");
        click(window, "Command5");
        click(window, "Command5");
        EXPECT_EQ((std::vector<std::string>{"tool=gcc", "Other=x"}), entries(window));
        choose(window, "List1", 0);
        click(window, "Command8");
        choose(window, "List1", 1);
        pressKey(*findControl(window, "List1"), WXK_DELETE);
        EXPECT_EQ(std::vector<std::string>{"tool=clang"}, entries(window));
        click(window, "Command6");
    });
    EXPECT_EQ("/new/libraries", settings.libraryPath);
    EXPECT_EQ("clang", settings.globalVars[0].value);
}

TEST_F(Options, ChoosesDirectoriesAndTheListFile) {
    start();
    windows.fileAnswers = {inDirectory("data/Select this directory"), inDirectory("functions.ini")};
    open([&](wxDialog& window) {
        click(window, "Command3");
        click(window, "Command4");
        EXPECT_EQ(shortPath(inDirectory("data")), fromWx(control<wxTextCtrl>(window, "Text3").GetValue()));
        EXPECT_EQ(shortPath(inDirectory("functions.ini")), fromWx(control<wxTextCtrl>(window, "Text4").GetValue()));
        window.Close();
    });
    EXPECT_EQ("", settings.pluginPath) << "closing discards";
}

TEST_F(Options, AFileThatCannotBeWrittenIsToldAndTheWindowStays) {
    start();
    std::filesystem::remove(fromUtf8(inDirectory("Brasquelin.ini")));
    std::filesystem::create_directory(fromUtf8(inDirectory("Brasquelin.ini")));
    open([&](wxDialog& window) {
        click(window, "Command6");
        EXPECT_TRUE(window.IsModal());
        window.Close();
    });
    ASSERT_EQ(1U, modals.messages.size());
    EXPECT_EQ(0U, modals.messages[0].find("Brasquelin Error: Error "));
}

}  // namespace
}  // namespace brasquelin
