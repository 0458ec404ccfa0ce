// What only Windows can show of the program: its registration, and its windows from outside.
#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include "platform/codePages.h"
#include "platform/windows/wideText.h"
#include "support/becomesTrue.h"
#include "support/programRun.h"

namespace brasquelin {
namespace {

/// The default value of a key under HKEY_CLASSES_ROOT.
std::string classValue(const wchar_t* key) {
    wchar_t value[1024] = L"";
    DWORD size = sizeof value;
    RegGetValueW(HKEY_CLASSES_ROOT, key, nullptr, RRF_RT_REG_SZ, nullptr, value, &size);
    return fromWide(value);
}

class WindowsExecutable : public testing::Test {
  protected:
    /// The program's window with this title, once it has come up; a test failure when it does not.
    HWND awaitWindow(const wchar_t* title) const {
        HWND found = nullptr;
        EXPECT_TRUE(becomesTrue([&] {
            DWORD owner = 0;
            found = FindWindowW(nullptr, title);
            if (found != nullptr) GetWindowThreadProcessId(found, &owner);
            return owner == GetProcessId(reinterpret_cast<HANDLE>(program.process())) && IsWindowVisible(found) != 0;
        })) << "no window "
            << fromWide(title);
        return found;
    }
    /// A file that is being executed cannot be removed.
    bool isNoLongerExecuted(const char* name) const {
        return becomesTrue([&] {
            std::error_code inUse;
            std::filesystem::remove(program.path() / name, inUse);
            return !inUse;
        });
    }
    void useSleepingLauncher() const {
        program.copyHelper("sleeper.exe");
        program.writeLines("Brasquelin.ini", "[config]\nshellexec = $exepath$\\sleeper.exe\n[/config]");
    }
    bool launcherIsUp() const {
        return becomesTrue([this] { return program.read("sleeper.var") == "started"; });
    }

    ProgramRun program;
};

TEST_F(WindowsExecutable, RegistersItsFileTypesAtEveryStart) {
    RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Brasquelin.Script");
    for (const wchar_t* extension : {L".bqs", L".bqp"}) RegDeleteKeyW(HKEY_CLASSES_ROOT, extension);
    program.write("empty.txt", "");
    for (int start = 0; start < 2; ++start) {
        EXPECT_EQ(program.run("-f " + program / "empty.txt"), 0);
        for (const wchar_t* extension : {L".bqs", L".bqp"}) EXPECT_EQ(classValue(extension), "Brasquelin.Script");
        EXPECT_EQ(classValue(L"Brasquelin.Script\\shell\\open\\command"),
                  program.shortDirectory() + "\\Brasquelin.exe %1");
    }
    program.writeLines("opened.bqp",
                       "#Brasquelin Profile No variables\n[library]\n:include $exepath$\\line.bqs\n"
                       "[/library]\n[profile]\nline\n.text=echo opened>\"$exepath$\\said.txt\"\n[/profile]");
    program.writeLineLibrary();
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, nullptr, L"cmd.exe", L"/c start opened.bqp", program.path().c_str(), SW_HIDE));
    EXPECT_GT(result, 32);
    EXPECT_TRUE(becomesTrue([&] { return program.read("said.txt") == "opened\r\n"; }));
    EXPECT_TRUE(isNoLongerExecuted("Brasquelin.exe")) << "it ends by itself once the batch file has run";
}

TEST_F(WindowsExecutable, EndsItsChildWithItsMainWindow) {
    useSleepingLauncher();
    program.start(program.writeProfile("p.bqp", "", "line\n.text=rem"));
    const HWND ok = FindWindowExW(awaitWindow(L"Test"), nullptr, L"Button", L"OK");
    ASSERT_NE(ok, nullptr);
    PostMessageW(ok, BM_CLICK, 0, 0);
    ASSERT_TRUE(launcherIsUp());
    PostMessageW(awaitWindow(L"Brasquelin"), WM_CLOSE, 0, 0);
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(isNoLongerExecuted("sleeper.exe"));
}

TEST_F(WindowsExecutable, EndsItsChildWhenItIsEndedByForce) {
    useSleepingLauncher();
    program.write("list.txt", "");
    program.start("-f " + program.shortDirectory() + "\\list.txt");
    ASSERT_TRUE(launcherIsUp());
    program.endByForce();
    EXPECT_TRUE(isNoLongerExecuted("sleeper.exe"));
}

TEST_F(WindowsExecutable, RunsAFileWhosePathIsLongerThan260Characters) {
    std::string deep;
    for (int level = 0; level < 3; ++level) deep += std::string(100, 'd') + "\\";
    std::error_code failed;
    std::filesystem::create_directories(program.path() / fromUtf8(deep), failed);
    if (failed) GTEST_SKIP() << "paths of this length cannot be made here";
    const std::string profile = program.writeProfile(deep + "p.bqp", ":include $scriptpath$\\beside.bqs",
                                                     "beside\n.text=echo $x$>\"$exepath$\\said.txt\"");
    const std::string library = program.read("line.bqs");
    program.write(deep + "beside.bqs", library.substr(0, 21) + "beside" + library.substr(25));
    EXPECT_EQ(program.run(profile + " 001=well"), 0);
    EXPECT_EQ(program.read("said.txt"), "well\r\n");
}

}  // namespace
}  // namespace brasquelin
