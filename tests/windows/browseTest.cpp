#include <gtest/gtest.h>

#include "support/scriptedDesktop.h"
#include "vars/promptForm.h"

namespace brasquelin {
namespace {

TEST(WindowsBrowse, aRowForDoubledBackslashesDoublesEveryOne) {
    ScriptedDesktop scripted;
    Desktop& before = desktop();
    setDesktop(scripted);
    scripted.files = {R"(C:\a.b)", R"(C:\windows\new.log)"};
    PromptRow row;
    row.kind = VariableKind::dbls;
    row.dialogMode = "save";
    row.doubledBackslashes = true;
    for (const char* taken : {R"(C:\\a.b)", R"(C:\\windows\\new.log)"}) {
        EXPECT_TRUE(browse(row));
        EXPECT_EQ(row.text, taken);
    }
    setDesktop(before);
}

}  // namespace
}  // namespace brasquelin
