#include "editor/newLines.h"

#include <gtest/gtest.h>

#include "config/configFile.h"
#include "editor/references.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

class NewLines : public ProgramTest {
  protected:
    ProfileDocument document;
};

TEST_F(NewLines, EachTypeTakesItsOwnFields) {
    VariableFields fields;
    fields.listChoices = {"", "a", "b"};
    fields.combEntries = {"fast[-O2]", "$Index$"};
    fields.filter = "T|*.t";
    std::string made;
    for (const auto& type : variableTypes()) {
        fields.type = type;
        made += typeSpecOf(fields) + " ";
    }
    EXPECT_EQ(made,
              "Text Comb(fast[-O2]||$Index$) List(||a||b) PathOpen(T|*.t) PathSave(T|*.t) DblSOpen(T|*.t) "
              "DblSSave(T|*.t) ");
    fields.listChoices.clear();
    fields.type = "List";
    EXPECT_EQ(typeSpecOf(fields), "List()");
    fields.type = "list";
    EXPECT_EQ(typeSpecOf(fields), "");
}

TEST_F(NewLines, ALoopIsFiveLinesUnlessAFieldIsEmpty) {
    EXPECT_EQ(loopLines("i", "1", "$count$", "1"),
              (Lines{"For", ".VarName=i", ".VarStart=1", ".VarEnd=$count$", ".VarStep=1"}));
    EXPECT_TRUE(loopLines("", "1", "2", "1").empty());
    EXPECT_TRUE(loopLines("i", "1", "2", "").empty());
}

TEST_F(NewLines, PathsBecomeRelativeToTheProgramFirst) {
    write("profiles/a.bqp", {});
    const std::string profile = folder() + "/profiles/a.bqp";
    EXPECT_EQ(includePath(folder() + "/profiles/b.bqp", profile), "$exepath$/profiles/b.bqp");
    EXPECT_EQ(includePath("/elsewhere/b.bqs", profile), "/elsewhere/b.bqs");
    setProgramDirectory(folder() + "/profiles");
    EXPECT_EQ(includePath(folder() + "/b.bqs", folder() + "/a.bqp"), "$scriptpath$/b.bqs");
    EXPECT_EQ(includePath(folder() + "/b.bqs", ""), folder() + "/b.bqs");
    write("odd/a.bqp", {});
    for (const std::string beside : {"/profiles2/b.bqp", "/oddity/b.bqp"}) {
        EXPECT_EQ(includePath(folder() + beside, folder() + "/odd/a.bqp"), folder() + beside);
    }
}

TEST_F(NewLines, OffersIncludesFunctionsAndPluginsInThisOrder) {
    write("a.bqs", {"#Brasquelin Library  Pack it"});
    write("profiles/b.BQP", {"#Brasquelin Profile Build"});
    write("notes.txt", {"#Brasquelin Profile No"});
    write("functions.ini", {"copy", "copy.ini", "move"});
    settings.basicFunctionPath = folder() + "/functions.ini";
    settings.profilePath = folder() + "/profiles/x.bqp";
    document.listInclude = {":Plugin p.exe", ":INCLUDE $ExePath$/a.bqs", ":Include $exepath$/none.bqs",
                            ":Include $exepath$/notes.txt", ":Include $scriptpath$/b.BQP"};
    document.pluginNames.append("zip");
    Lines offered;
    for (const auto& entry : callableEntries(document)) offered.push_back(entry.name + " " + entry.path);
    EXPECT_EQ(offered, (Lines{"Pack it " + folder() + "/a.bqs", "Build " + folder() + "/profiles/b.BQP",
                              "BasicFunction.copy ", "BasicFunction.move ", "Plugin.zip "}));
    EXPECT_TRUE(messages().empty());
}

TEST_F(NewLines, AMissingFunctionListOrABadDeclarationIsOnlyTold) {
    settings.basicFunctionPath = folder() + "/none.ini";
    document.pluginNames.append("zip");
    EXPECT_EQ(callableEntries(document).size(), 1U);
    EXPECT_EQ(messages(),
              Lines{"Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + folder() + "/none.ini'"});
    write("bad.bqs", {"#", "[var]", "a", ".Type=Text", ".Info=", "b", ".Type=List(x", "[/var]"});
    EXPECT_TRUE(parametersOfInclude(folder() + "/bad.bqs").empty());
    EXPECT_EQ(messages().size(), 2U);
}

TEST_F(NewLines, EachCallerGetsItsOwnReferences) {
    document.listVar = {"first", ".Type=Text", "second"};
    document.listCommand = {"For", ".VarName=i", "for", ".VarName=no", "For", ".VarName=j", "For"};
    variableTables.pluginResults[0].append({"files", "3"});
    setGlobals({{"Out", "/out"}});
    const auto offered = [](const Lines& references) {
        std::string text;
        for (const auto& reference : references) text += reference;
        return text;
    };
    const std::string commandBuiltIns = "$exepath$$Index$$exepathdblslash$$scriptpath$$scriptpathdbslash$";
    EXPECT_EQ(offered(loopReferences(document)), "$index$$files$$first$$second$$Out$$i$$j$");
    EXPECT_EQ(offered(commandReferences(document)), commandBuiltIns + "$files$$first$$second$$Out$$i$$j$");
    EXPECT_EQ(offered(callReferences(document)), commandBuiltIns + "$files$$first$$second$$i$$j$");
    EXPECT_EQ(offered(variableReferences()),
              "$exepath$$Index$$exepathdbslash$$scriptpath$$scriptpathdbslash$$files$$Out$");
}

}  // namespace
}  // namespace brasquelin
