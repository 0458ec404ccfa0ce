#include <gtest/gtest.h>

#include <thread>

#include "platform/childProcess.h"
#include "platform/paths.h"
#include "platform/systemLock.h"
#include "platform/windows/programStart.h"
#include "support/becomesTrue.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

class WindowsProcesses : public ProgramTest {
  protected:
    static bool runs(const std::string& command) {
        const std::uint32_t child = systemProcessTable().start(command, WindowStyle::hidden);
        return becomesTrue([child] { return !systemProcessTable().isRunning(child); });
    }
};

TEST_F(WindowsProcesses, ABatchFileWithBlanksRunsWithItsArguments) {
    writeBytes("say it.bat", "@echo %1-%2>\"%~dp0said.txt\"\r\n@if \"%1\"==\"\" echo a-b>\"%~dp0said.txt\"\r\n");
    const std::string batch = joinPath(folder(), "say it.bat");
    const Lines commands{batch + " a b", '"' + batch + "\" a b", shortPath(batch) + " a b", "cmd /c " + batch};
    for (const std::string& command : commands) {
        remove("said.txt");
        EXPECT_TRUE(runs(command));
        EXPECT_EQ(read("said.txt"), "a-b\r\n") << command;
    }
}

TEST_F(WindowsProcesses, ProgramsAreFoundByNameAndExtensionMayBeMissing) {
    EXPECT_TRUE(runs("cmd /c exit 259"));  // the code of a process that is still running
    EXPECT_TRUE(runs("  CMD.EXE /c exit"));
    write("two words.exe", {});
    const std::string tool = joinPath(folder(), "two words");
    const ProgramStart start = programStartOf(tool + " -x \"y z\"");
    EXPECT_EQ(start.program, fromUtf8(tool + ".exe").wstring());
    EXPECT_EQ(start.commandLine, L"\"" + fromUtf8(tool).wstring() + L"\" -x \"y z\"");
    EXPECT_EQ(errorOf([] { runs("   "); }), ErrorNumber::invalidCall);
    EXPECT_EQ(errorOf([this] { runs(folder() + "/missing.exe a b"); }), ErrorNumber::fileNotFound);
}

TEST_F(WindowsProcesses, TheLockOfADirectoryHasOneOwner) {
    EXPECT_TRUE(tryLockDirectory(folder()));
    bool other = true;  // a mutex belongs to its thread
    std::thread([&] { other = tryLockDirectory(shortPath(folder())); }).join();
    EXPECT_FALSE(other);
    unlockDirectory();
    EXPECT_TRUE(tryLockDirectory(folder()));
    unlockDirectory();
    EXPECT_TRUE(std::filesystem::is_empty(fromUtf8(folder())));
}

}  // namespace
}  // namespace brasquelin
