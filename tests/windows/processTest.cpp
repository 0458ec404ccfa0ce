#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "platform/childProcess.h"
#include "platform/paths.h"
#include "platform/systemLock.h"
#include "platform/windows/programStart.h"
#include "support/scratchDirectory.h"
#include "text/runTimeError.h"
#include "windows/becomesTrue.h"

namespace brasquelin {
namespace {

bool ends(std::uint32_t processId) {
    return becomesTrue([&] { return !systemProcessTable().isRunning(processId); });
}

ErrorNumber startError(std::string_view command) {
    try {
        systemProcessTable().start(command, WindowStyle::hidden);
    } catch (const RunTimeError& error) {
        return error.number();
    }
    ADD_FAILURE() << "started: " << command;
    return ErrorNumber::overflow;
}

TEST(WindowsProcesses, aBatchFileWithBlanksRunsWithItsArguments) {
    const ScratchDirectory scratch;
    scratch.write("say it.bat", "@echo %1-%2>\"%~dp0said.txt\"\r\n");
    for (const std::string& command : {scratch / "say it.bat" + " a b", '"' + scratch / "say it.bat" + "\" a b",
                                       shortPath(scratch / "say it.bat") + " a b"}) {
        std::filesystem::remove(scratch.path() / L"said.txt");
        EXPECT_TRUE(ends(systemProcessTable().start(command, WindowStyle::hidden)));
        EXPECT_EQ(bytesOf(scratch.path() / L"said.txt"), "a-b\r\n") << command;
    }
}

TEST(WindowsProcesses, aLauncherGetsABatchFileWithBlanks) {
    const ScratchDirectory scratch;
    scratch.write("say it.bat", "@echo said>\"%~dp0said.txt\"\r\n");
    EXPECT_TRUE(ends(systemProcessTable().start("cmd /c " + scratch / "say it.bat", WindowStyle::hidden)));
    EXPECT_EQ(bytesOf(scratch.path() / L"said.txt"), "said\r\n");
}

TEST(WindowsProcesses, programsAreFoundByNameAndExtensionMayBeMissing) {
    EXPECT_TRUE(ends(systemProcessTable().start("cmd /c exit", WindowStyle::hidden)));
    EXPECT_TRUE(ends(systemProcessTable().start("  CMD.EXE /c exit", WindowStyle::hidden)));
    const ScratchDirectory scratch;
    scratch.write("two words.exe", "");
    const ProgramStart start = programStartOf(scratch / "two words -x \"y z\"");
    EXPECT_EQ(start.program, (scratch.path() / L"two words.exe").wstring());
    EXPECT_EQ(start.commandLine, L"\"" + (scratch.path() / L"two words").wstring() + L"\" -x \"y z\"");
}

TEST(WindowsProcesses, errorsOfStartingNameTheProgram) {
    const ScratchDirectory scratch;
    scratch.write("broken.exe", "no program");
    for (const char* name : {"missing", "broken.exe"}) {
        try {
            systemProcessTable().start('"' + scratch / name + "\" a b", WindowStyle::hidden);
            ADD_FAILURE() << "started: " << name;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.path(), scratch / name);
        }
    }
}

TEST(WindowsProcesses, errorsOfStarting) {
    const ScratchDirectory scratch;
    EXPECT_EQ(startError(""), ErrorNumber::invalidCall);
    EXPECT_EQ(startError("   "), ErrorNumber::invalidCall);
    EXPECT_EQ(startError(scratch / "missing.exe a b"), ErrorNumber::fileNotFound);
    EXPECT_EQ(startError("\"" + scratch / "missing.exe" + "\" a"), ErrorNumber::fileNotFound);
    EXPECT_EQ(startError(scratch.write("broken.exe", "no program")), ErrorNumber::permissionDenied);
}

TEST(WindowsProcesses, onlyOwnChildrenAreEnded) {
    const std::uint32_t child = systemProcessTable().start("cmd /c pause", WindowStyle::hidden);
    EXPECT_TRUE(systemProcessTable().isRunning(child));
    EXPECT_TRUE(systemProcessTable().terminate(child));
    EXPECT_TRUE(ends(child));
    EXPECT_FALSE(systemProcessTable().terminate(child));
    EXPECT_FALSE(systemProcessTable().isRunning(GetCurrentProcessId()));
    EXPECT_FALSE(systemProcessTable().terminate(GetCurrentProcessId()));
}

TEST(WindowsProcesses, theLockOfADirectoryHasOneOwner) {
    const ScratchDirectory scratch;
    const std::string directory = utf8(scratch.path());
    EXPECT_TRUE(tryLockDirectory(directory));
    bool other = true;  // a mutex belongs to its thread
    std::thread([&] { other = tryLockDirectory(shortPath(directory)); }).join();
    EXPECT_FALSE(other);
    unlockDirectory();
    EXPECT_TRUE(tryLockDirectory(directory));
    unlockDirectory();
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
}

TEST(WindowsProcesses, theExitCodeOfARunningProcessDoesNotDeceive) {
    EXPECT_TRUE(ends(systemProcessTable().start("cmd /c exit 259", WindowStyle::hidden)));
}

}  // namespace
}  // namespace brasquelin
