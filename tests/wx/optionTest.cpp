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

Lines entries(wxWindow& window) {
    Lines texts;
    for (const auto& entry : control<wxListBox>(window, "List1").GetStrings()) texts.emplace_back(entry.utf8_string());
    return texts;
}

TEST_F(Options, EditsAndSavesTheConfiguration) {
    start();
    windows.fileAnswers = {inDirectory("data/Select this directory"), inDirectory("functions.ini")};
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
        click(window, "Command3");
        click(window, "Command4");
        EXPECT_EQ(shortPath(inDirectory("functions.ini")), fromWx(control<wxTextCtrl>(window, "Text4").GetValue()));
        click(window, "Command5");
        click(window, "Command5");
        EXPECT_EQ((Lines{"tool=gcc", "Other=x"}), entries(window));
        choose(window, "List1", 0);
        click(window, "Command8");
        choose(window, "List1", 1);
        pressKey(*findControl(window, "List1"), WXK_DELETE);
        EXPECT_EQ(Lines{"tool=clang"}, entries(window));
        click(window, "Command6");
    });
    EXPECT_EQ("/new/libraries", settings.libraryPath);
    EXPECT_EQ(0U, settings.pluginPath.find(exeDirectory())) << settings.pluginPath;
    EXPECT_TRUE(settings.pluginPath.ends_with("data"));
    open([](wxDialog& window) {
        type(window, "Text1", "/lost");
        window.Close();
    });
    EXPECT_EQ("/new/libraries", settings.libraryPath) << "closing discards";
    EXPECT_EQ("clang", settings.globalVars.row(0).value);
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
