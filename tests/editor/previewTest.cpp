#include "editor/preview.h"

#include <gtest/gtest.h>

#include "config/configFile.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

class Preview : public ProgramTest {
  protected:
    void SetUp() override {
        write("Brasquelin.ini", {"[config]", "[/config]"});
        writeSayLibrary("say.bqs");
        document_.profileName = "Unsaved one";
        document_.append(EditorList::include, {":Include $scriptpath$/say.bqs"});
        document_.append(EditorList::variables, {"name", ".Type=Text", ".Info=", ".Default=first", "kind",
                                                 ".Type=List(a||b)", ".Info=", ".Default=2"});
        document_.append(EditorList::commands, {"Say", ".text=$name$ $kind$ $answer$"});
    }
    void addPlugin() {
        write("tool.exe", {});
        document_.append(EditorList::include, {":Plugin $exepath$/tool.exe"});
        onCommand("tool.exe", [this] { write("tool.var", {"answer = 42"}); });
    }
    static Lines textsOf(const DocumentPreview& preview) {
        Lines texts;
        for (const auto& line : preview.lines()) texts.push_back((line.needsPlugin ? "* " : "") + line.text);
        return texts;
    }

    ProfileDocument document_;
};

TEST_F(Preview, ShowsTheLinesForTheDefaultsAndForOtherValues) {
    DocumentPreview preview(document_);
    EXPECT_EQ(textsOf(preview), Lines{"echo first b $answer$"});
    EXPECT_EQ(preview.summary(), "1 line");
    preview.askValues();
    desktop_.prompt->rows[0].text = "not confirmed";
    EXPECT_EQ(textsOf(preview), Lines{"echo first b $answer$"});
    EXPECT_EQ(preview.notes(), Lines());
    EXPECT_EQ(jobs(), Lines());
    EXPECT_TRUE(variableTables.profileVariables[1].empty());
}

TEST_F(Preview, RunsPluginsOnlyWhenAsked) {
    addPlugin();
    DocumentPreview preview(document_);
    EXPECT_EQ(textsOf(preview), Lines{"* echo first b $answer$"});
    EXPECT_EQ(preview.summary(), "1 line; a plugin would change 1 of them (marked)");
    EXPECT_EQ(commands(), Lines());
    preview.runWithPlugins();
    EXPECT_EQ(textsOf(preview), Lines{"echo first b 42"});
    EXPECT_EQ(commands().size(), 1U);
    EXPECT_FALSE(preview.leftPrograms());
}

/// What ends the program elsewhere is a note here, and loops that never end do.
TEST_F(Preview, SurvivesWhatIsWrongInTheDocument) {
    document_.append(EditorList::commands, {"For", ".VarName=i", ".VarStart=1", ".VarEnd=1", ".VarStep=0", "Say",
                                            ".text=$i$", "Next", "What"});
    const DocumentPreview preview(document_);
    EXPECT_EQ(preview.lines().size(), 20'001U);
    EXPECT_EQ(preview.notes().size(), 3U);
    EXPECT_EQ(messages(), Lines());
}

}  // namespace
}  // namespace brasquelin
