#include "editor/formActions.h"

#include <gtest/gtest.h>

#include "config/configFile.h"
#include "editor/addCommand.h"
#include "editor/addVariable.h"
#include "editor/editorActions.h"
#include "editor/formFields.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

TEST(FormFields, ADeclarationComesBackFromItsLines) {
    const std::vector<VariableFields> all{{},
                                          {"a b", "List", {"x", "", "y[1]"}, {}, "All Files|*.*", "", "1"},
                                          {"c", "Comb", {}, {"fast[-1]", "$Index$", "[]"}, "All Files|*.*", "i", ""},
                                          {"p", "PathSave", {}, {}, "Text (old)|*.txt", "none", "$exepath$"},
                                          {"d", "DblSOpen", {}, {}, "", "none", "C:\\x"},
                                          {"e", "List", {}, {}, "All Files|*.*", "none", ""}};
    for (const auto& fields : all) {
        auto lines = declarationLines(fields);
        lines.emplace_back(".further");
        const auto declared = fieldsOfDeclaration(lines);
        ASSERT_TRUE(declared) << fields.name;
        EXPECT_EQ(declared->lines, 4U);
        EXPECT_EQ(declarationLines(declared->fields), declarationLines(fields));
        EXPECT_EQ(declared->fields.listChoices, fields.listChoices);
        EXPECT_EQ(declared->fields.combEntries, fields.combEntries);
        EXPECT_EQ(declared->fields.filter, fields.filter);
    }
    EXPECT_EQ(fieldsOfDeclaration({"x", ".type=LIST(a)", "xxxxx=about", ".more"})->fields.info, "about");
    EXPECT_FALSE(fieldsOfDeclaration({"x", ".Type=List(a", ".Info="}));
    EXPECT_FALSE(fieldsOfDeclaration({"x", ".Type=Number", ".Info="}));
    EXPECT_FALSE(fieldsOfDeclaration({"x", ".Type=Text"}));
}

class FormActions : public ProgramTest {
  protected:
    FormActions() {
        write("build.bqp", {"#Brasquelin Profile Build", "[var]", "src", ".Type=Text", ".Info=", "dst", ".Type=Text",
                            ".Info=", ".Default=out", "[/var]"});
        write("functions.ini", {"copy", "copy.ini"});
        settings.basicFunctionPath = folder() + "/functions.ini";
        enterEditor();
    }

    static void given(EditorList which, const std::vector<std::string>& lines) {
        editorState.edited.replace([&](ProfileDocument& changed) { changed.list(which) = lines; });
    }
    /// Presses the button of the form that editInForm opens.
    void inForm(EditorList which, std::size_t line, const std::function<void()>& form) {
        desktop_.onWindow = [&form](ProgramWindow) { form(); };
        EXPECT_EQ(editInForm(which, {line}), LineNumbers{groupStart(document.list(which), which, line)});
        desktop_.onWindow = {};
        EXPECT_FALSE(editorState.inForm);
    }
    void changeCall(std::size_t line) {
        inForm(EditorList::commands, line, [] {
            const AddCommand dialog;
            ASSERT_TRUE(dialog.edits() && dialog.firstChoice());
            dialog.configure(*dialog.firstChoice());
        });
    }
    std::vector<std::string> startValues() {
        std::vector<std::string> values;
        for (const auto& question : desktop_.valueQuestions) values.push_back(question.defaultText);
        return values;
    }

    const ProfileDocument& document = editorState.document;
    std::deque<std::string>& inputs = desktop_.values;  // none cancels
};

TEST_F(FormActions, ADeclarationIsChangedWhereItStands) {
    given(EditorList::variables, {"a", ".Type=Text", ".Info=i", "b", ".Type=Comb(x[1]||y[2])", ".Info=", ".Default=1",
                                  ".further", "c", ".Type=Text", ".Info="});
    inputs = {"z", "3"};
    inForm(EditorList::variables, 5, [] {
        AddVariable dialog;
        ASSERT_TRUE(dialog.edits());
        EXPECT_EQ(dialog.note(), "");
        dialog.fields.name = "A";
        EXPECT_EQ(dialog.note(), "'A' is declared already.");
        dialog.fields.name = "B";
        EXPECT_EQ(dialog.note(), "");
        dialog.editCombEntry(1);
        dialog.editCombEntry(0);  // cancelled
        dialog.add();
    });
    EXPECT_EQ(startValues(), (std::vector<std::string>{"y", "2", "x"}));
    EXPECT_EQ(document.listVar[3], "B");
    EXPECT_EQ(document.listVar[4], ".Type=Comb(x[1]||z[3])");
    EXPECT_EQ(document.listVar[7], ".further");
    EXPECT_EQ(document.listVar.size(), 11U);
    undoChange();
    EXPECT_FALSE(editorState.edited.canUndo()) << "one step";
}

TEST_F(FormActions, TheFirstChoiceTellsTheType) {
    AddVariable dialog;
    inputs = {"Canceled", "a", "label", "command", "b"};
    dialog.askListChoice();
    EXPECT_EQ(dialog.fields.type, "Text");
    dialog.fields.listChoices.clear();
    dialog.askListChoice();
    EXPECT_EQ(dialog.fields.type, "List");
    dialog.askCombEntry();
    EXPECT_EQ(dialog.fields.type, "List") << "it has choices of its own";
    dialog.fields = {};
    dialog.fields.type = "Comb";
    EXPECT_EQ(dialog.note(), "There is nothing to choose from yet.");
}

TEST_F(FormActions, ACallKeepsWhatIsNotAnsweredAnew) {
    given(EditorList::include, {":Include $exepath$/build.bqp"});
    editorState.edited.change([](ProfileDocument& changed) {
        changed.append(EditorList::commands, {"first", "BUILD", ".dst=d", ".gone=g", "BasicFunction.copy=a=1", "last"});
    });
    inputs = {"s"};
    changeCall(2);  // the second one is cancelled
    EXPECT_EQ(startValues(), (std::vector<std::string>{"", "d"}));
    const auto lines = document.listCommand;
    EXPECT_EQ(std::vector<std::string>(lines.begin(), lines.begin() + 5),
              (std::vector<std::string>{"first", "BUILD", ".src=s", ".dst=d", ".gone=g"}));
    desktop_.valueQuestions.clear();
    inputs = {"a=2"};
    changeCall(5);
    changeCall(5);  // cancelled
    EXPECT_EQ(startValues(), (std::vector<std::string>{"a=1", "a=2"}));
    EXPECT_EQ(document.listCommand[5], "BasicFunction.copy=a=2");
    EXPECT_EQ(document.listCommand.size(), 7U);
}

TEST_F(FormActions, ALoopIsChangedAndOtherLinesAreTold) {
    given(EditorList::commands, {"For", ".VarName=i", ".VarStart=1", ".VarEnd=2", ".VarStep=1", "echo", "Next"});
    answerText("j");
    inputs = {"0", "9"};
    EXPECT_EQ(editInForm(EditorList::commands, {3}), LineNumbers{0});
    EXPECT_EQ(document.listCommand, (std::vector<std::string>{"For", ".VarName=j", ".VarStart=0", ".VarEnd=9",
                                                              ".VarStep=1", "echo", "Next"}));
    editInForm(EditorList::commands, {5});
    editInForm(EditorList::commands, {6});
    ASSERT_EQ(messages().size(), 2U);
    EXPECT_NE(messages()[0].find("'echo' cannot be shown in a form"), std::string::npos);
    EXPECT_TRUE(windowCalls().empty());
}

TEST_F(FormActions, ACommandLineComesBehindTheSelection) {
    given(EditorList::commands, {"call", ".a=1", "Next"});
    inputs = {"BasicFunction.copy=x", ""};
    EXPECT_EQ(addCommandLine({0}), LineNumbers{2});
    EXPECT_EQ(addCommandLine({0}), LineNumbers{0}) << "an empty one is none";
    EXPECT_EQ(addCommandLine({}), LineNumbers()) << "cancelled";
    EXPECT_EQ(document.listCommand, (std::vector<std::string>{"call", ".a=1", "BasicFunction.copy=x", "Next"}));
}

}  // namespace
}  // namespace brasquelin
