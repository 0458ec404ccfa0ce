#include "editor/profileDocument.h"

#include <gtest/gtest.h>

#include "config/configFile.h"
#include "editor/documentSearch.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "text/text.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

class ProfileDocumentTest : public ProgramTest {
  protected:
    std::string path(const std::string& name = "test.bqp") const { return folder() + "/" + name; }
    void open(const Lines& lines) {
        write("test.bqp", lines);
        openDocument(document, path());
    }

    ProfileDocument document;
};

TEST_F(ProfileDocumentTest, SavesNothingButTheProfileSectionOfAnEmptyDocument) {
    saveDocument(document, path());
    EXPECT_EQ(read("test.bqp"), "#Brasquelin Profile newprofile\r\n\r\n\r\n[profile]\r\n\r\n\r\n[/profile]\r\n");
}

TEST_F(ProfileDocumentTest, FramesOnlyTheVariablesWithEmptyLines) {
    document = {"Caf\xc3\xa9", {":Include a.bqs"}, {"x", ".Type=Text"}, {"Next"}, {}, false};
    EXPECT_EQ(documentLines(document),
              splitLines("#Brasquelin Profile Caf\xc3\xa9\n\n\n[library]\n\n:Include a.bqs\n\n[/library]\n\n"
                         "[var]\n\nx\n.Type=Text\n\n[/var]\n\n[profile]\n\nNext\n\n[/profile]"));
    document.listVar.clear();
    EXPECT_EQ(documentLines(document)[8], "[profile]");
}

TEST_F(ProfileDocumentTest, ReadsSectionsInAnyOrderAndLetterCase) {
    open({"any header will do: My name", "stray", "[PROFILE]", "", "one", " [var]", "[/Profile]", "lost", "[Var]", "x",
          "[/VAR]", "[library]", ":include a"});
    EXPECT_EQ(document.profileName, "My name");
    EXPECT_EQ(document.listCommand, (Lines{"one", " [var]"}));
    EXPECT_EQ(document.listVar, Lines{"x"});
    EXPECT_EQ(document.listInclude, Lines{":include a"});
    EXPECT_EQ(settings.profilePath, path());
}

TEST_F(ProfileDocumentTest, AnUnclosedSectionRunsToTheEndAndTakesNoTag) {
    open({"short", "[var]", "x", "[library]", "y", "[/library]", "[profile]", "z"});
    EXPECT_EQ(document.profileName, "");
    EXPECT_EQ(document.listVar, (Lines{"x", "y", "z"}));
    EXPECT_EQ(document.listInclude, Lines{"y"});
    EXPECT_EQ(document.listCommand, Lines{"z"});
}

TEST_F(ProfileDocumentTest, AProfileWithEveryFeatureComesBackByteForByte) {
    open(
        splitLines("#Brasquelin Profile Every feature $x$ \xc3\xa9\n\n\n"
                   "[library]\n\n:Include $exepath$\\a.bqs\n:include C:\\b.bqp\n:Check $scriptpath$/c.exe\n"
                   ":CHECK d.exe [param=x]\n\n[/library]\n\n"
                   "[var]\n\nt\n.Type=Text\n.Info= blanks kept \n.Default=\n"
                   "c\n.Type=Comb(A[1]||$Index$)\n.Info=none\n.Default=1\n\n[/var]\n\n"
                   "[profile]\n\nFor\n.VarName=i\n.VarStart=1\n.VarEnd=$count$\n.VarStep=1\nTitle of a\n.t=$i$\n"
                   "BasicFunction.copy=a=1||b=2\nPlugin.zip=-r\nNext\n\n[/profile]"));
    const std::string bytes = read("test.bqp");
    saveDocument(document, path("copy.bqp"));
    EXPECT_EQ(read("copy.bqp"), bytes);
    EXPECT_TRUE(messages().empty());
}

TEST_F(ProfileDocumentTest, KeepsItsEncodingUnderAnotherName) {
    for (const std::string name : {"caf\xC3\xA9", "caf\xE9", "\xC3\xA9"}) {
        const std::string mark = name.size() == 2 ? "\xEF\xBB\xBF" : "";
        const std::string header = mark + "#Brasquelin Profile ";
        writeBytes("test.bqp", header + name + "\r\n\r\n\r\n[profile]\r\n\r\n\r\n[/profile]\r\n");
        openDocument(document, path());
        saveDocument(document, path("copy.bqp"));
        EXPECT_EQ(read("copy.bqp"), read("test.bqp"));
    }
}

TEST_F(ProfileDocumentTest, AFailedOpenOrSaveLeavesTheDocument) {
    open({"#Brasquelin Profile Kept", "[profile]", "line", "[/profile]"});
    write("empty.bqp", {});
    Lines plugins{"#Brasquelin Profile Many", "[library]"};
    plugins.resize(2 + 257, ":plugin p.exe");
    write("many.bqp", plugins);
    EXPECT_EQ(errorOf([&] { openDocument(document, path("none.bqp")); }), ErrorNumber::fileNotFound);
    EXPECT_EQ(errorOf([&] { openDocument(document, path("empty.bqp")); }), ErrorNumber::inputPastEnd);
    EXPECT_EQ(errorOf([&] { openDocument(document, path("many.bqp")); }), ErrorNumber::subscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { saveDocument(document, path("none/x.bqp")); }), ErrorNumber::pathNotFound);
    EXPECT_EQ(document.listCommand, Lines{"line"});
    EXPECT_EQ(document.profileName, "Kept");
    EXPECT_TRUE(document.pluginNames.empty());
    EXPECT_EQ(settings.profilePath, path());
    EXPECT_TRUE(commands().empty());
}

TEST_F(ProfileDocumentTest, SearchGoesThroughAllListsAndAround) {
    document.listInclude = {":Include x"};
    document.listVar = {"Exit", ".Type=Text"};
    document.listCommand = {"echo", "TEXT", "next"};
    const auto found = [&](std::string_view text, DocumentPlace from, SearchWay way) {
        const auto [place, told] = search(document, text, from, way);
        return !place ? told
                      : std::to_string(static_cast<int>(place->list)) + ":" + std::to_string(place->line) + " " + told;
    };
    EXPECT_EQ(found("ext", {}, SearchWay::here), "2:1 1 of 3");
    EXPECT_EQ(found("ext", {EditorList::variables, 1}, SearchWay::here), "2:1 1 of 3");
    EXPECT_EQ(found("ext", {EditorList::variables, 1}, SearchWay::forward), "3:1 2 of 3");
    EXPECT_EQ(found("ext", {EditorList::commands, 2}, SearchWay::forward), "2:1 1 of 3");
    EXPECT_EQ(found("ext", {EditorList::include, 0}, SearchWay::back), "3:2 3 of 3");
    EXPECT_EQ(found("none", {}, SearchWay::here), "not found");
    EXPECT_EQ(found("", {}, SearchWay::here), "");
}

TEST_F(ProfileDocumentTest, PluginNamesStayUntilANewDocumentOrAClearedList) {
    document.pluginNames.append("added");
    document.listInclude = {":Plugin added.exe"};
    document.listInclude.clear();
    open({"#Brasquelin Profile P", "[profile]"});
    EXPECT_EQ(document.pluginNames.count(), 1U);
    clearList(document, EditorList::commands);
    EXPECT_EQ(document.pluginNames.count(), 1U);
    clearList(document, EditorList::include);
    EXPECT_TRUE(document.pluginNames.empty());
    document.pluginNames.append("added");
    newDocument(document);
    EXPECT_TRUE(document.pluginNames.empty());
    EXPECT_EQ(document.profileName, "newprofile");
    EXPECT_EQ(settings.profilePath, "");
}

TEST_F(ProfileDocumentTest, ProposesAFileInTheProfileDirectoryOrBehindTheCurrentFile) {
    settings.profileDirectory = "/profiles";
    EXPECT_EQ(proposedFileName(document), joinPath("/profiles", "newprofile.bqp"));
    settings.profilePath = "/profiles/a.bqp";
    EXPECT_EQ(proposedFileName(document), joinPath("/profiles/a.bqp", "newprofile.bqp"));
}

}  // namespace
}  // namespace brasquelin
