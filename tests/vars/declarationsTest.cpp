#include "vars/declarations.h"

#include <gtest/gtest.h>

#include "support/programTest.h"
#include "text/substitution.h"
#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

class Declarations : public ProgramTest {
  protected:
    void readProfile(const Lines& lines) {
        write("x.bqp", lines);
        readProfileVariables(path(), 1);
    }
    void readFunction(const Lines& lines) {
        write("x.bqp", lines);
        readFunctionVariables(path());
    }
    std::string path() const { return folder() + "/x.bqp"; }

    static Lines names(const Table<VariableDeclaration>& table) {
        Lines all;
        for (const auto& row : table) all.push_back(row.name);
        return all;
    }
    static const Table<VariableDeclaration>& profile() { return variableTables.profileVariables[1]; }
    static const Table<VariableDeclaration>& function() { return variableTables.functionVariables; }
};

TEST_F(Declarations, AreReadByPositionInsideTheBlockOnly) {
    readProfile({"outside", "[VAR]", "", "Name", "??????TEXT", "!!!!!!about", ".DEFAULT=$ExePath$", "second",
                 ".Type=List()", ".Info=", "[/Var]", "third"});
    ASSERT_EQ(names(profile()), (Lines{"Name", "second"}));
    EXPECT_EQ(profile().row(0).typeSpec, "TEXT");
    EXPECT_EQ(profile().row(0).info, "about");
    EXPECT_EQ(profile().row(0).defaultValue, folder());
    EXPECT_EQ(profile().row(1).defaultValue, "");
}

TEST_F(Declarations, DefaultsKnowBothSpellingsOfTheDoubledDirectories) {
    write("x.bqp", {"[var]", "a", ".Type=Text", ".Info=", ".Default=$scriptpathdbslash$ $SCRIPTPATHDBLSLASH$ $index$"});
    readProfileVariables(path(), 3);
    const std::string doubled = doubleBackslashes(folder());
    EXPECT_EQ(variableTables.profileVariables[3].row(0).defaultValue, doubled + " " + doubled + " $index$");
}

TEST_F(Declarations, TheReadersDifferInAFourthLineThatIsNoDefault) {
    const Lines lines{"[var]", "a", ".Type=Text", ".Info=", ".Other=1", "b", ".Type=Text", ".Info=", "[/var]"};
    readProfile(lines);
    EXPECT_EQ(names(profile()), (Lines{"a", "b"}));
    EXPECT_EQ(exitStatusOf([&] { readFunction(lines); }), 1);  // ".Other=1" opens a declaration of type "Text"[7..]
    EXPECT_TRUE(function().empty());
}

TEST_F(Declarations, TheReadersDifferAtTheEndOfTheFile) {
    const Lines lines{"[var]", "a", ".Type=Text", ".Info=i"};
    readProfile(lines);
    EXPECT_EQ(names(profile()), Lines{"a"});
    EXPECT_TRUE(messages().empty());
    readFunction(lines);
    EXPECT_EQ(names(function()), Lines{"a"});
    EXPECT_EQ(messages(),
              Lines{"Brasquelin Error: Error 62 : Input past end of file\r\nWhile loading '" + path() + "'"});
    readProfile({"[var]", "alone"});
    EXPECT_TRUE(profile().empty());
    readProfile({" [var]", "a", ".Type=Text", ".Info="});
    EXPECT_TRUE(profile().empty()) << "a tag stands alone on its line";
}

TEST_F(Declarations, AParseErrorNamesTheLineAndEndsTheProgram) {
    const Lines lines{"[var]", "a", ".Type=Text", ".Info=", ".Default=", "b", ".Type=List(a||b", ".Info="};
    EXPECT_EQ(exitStatusOf([&] { readProfile(lines); }), 1);
    EXPECT_EQ(exitStatusOf([&] { readFunction(lines); }), 1);
    const std::string text = "Brasquelin Error: Parse error in file :\r\n'" + path() + "' line ";
    EXPECT_EQ(messages(), (Lines{text + "7", text + "3"}));
    EXPECT_TRUE(profile().empty());
    EXPECT_FALSE(readFunctionVariables(path(), OnParseError::report));
}

TEST_F(Declarations, TheTableHolds256) {
    Lines lines{"[var]"};
    for (int i = 0; i < 257; ++i) {
        lines.insert(lines.end(), {"v" + std::to_string(i), ".Type=Text", ".Info=", ".Default="});
    }
    readProfile(lines);
    EXPECT_EQ(profile().count(), 256U);
    EXPECT_EQ(messages(),
              Lines{"Brasquelin Error: Error 9 : Subscript out of range\r\nWhile loading '" + path() + "'"});
}

TEST_F(Declarations, PluginVariablesReachTypes) {
    variableTables.pluginResults[0].append({"items", "a||b"});
    readFunction({"[var]", "x", ".Type=List($Items$)", ".Info=", ".Default=1", "[/var]"});
    EXPECT_EQ(function().row(0).typeSpec, "List(a||b)");
}

TEST(TypeSpec, IsChecked) {
    for (const char* good :
         {"text", "LIST()", "list(a||b)", "Comb()", "comb(a[1]||b[])", "PathOpen(x|*.x)", "dblssave(|)"}) {
        EXPECT_TRUE(isValidTypeSpec(good)) << good;
    }
    for (const char* bad :
         {"", "texts", "List(a", "Comb(Yes[1]||No)", "comb(a[1)", "PathOpen(*.txt)", "PathOpen(a|b", "path(a|b)"}) {
        EXPECT_FALSE(isValidTypeSpec(bad)) << bad;
    }
}

TEST(TypeSpec, ChoicesBeginWithAnEmptyEntry) {
    Lines labels;
    Lines values;
    fillCombChoices(choiceText("Comb(Fast[-O2]||None[])"), labels, values);
    EXPECT_EQ(labels, (Lines{"", "Fast", "None"}));
    EXPECT_EQ(values, (Lines{"", "-O2", ""}));
    labels.clear();
    fillListChoices(choiceText("list(a||||b)"), labels);
    EXPECT_EQ(labels, (Lines{"", "a", "", "b"}));
}

}  // namespace
}  // namespace brasquelin
