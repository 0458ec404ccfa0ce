#include "platform/files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "support/scratchDirectory.h"
#include "text/runTimeError.h"

namespace brasquelin {
namespace {

template <typename Step>
ErrorNumber errorOf(Step step) {
    try {
        step();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    ADD_FAILURE() << "no error";
    return ErrorNumber::overflow;
}

TEST(WindowsFiles, namesOutsideTheAnsiPage) {
    const ScratchDirectory scratch;
    const std::string path = scratch / "\u65E5\u672C \u0106.bqp";
    writeFile(path, "one");
    saveFile(path, "two");
    EXPECT_EQ(readFileBytes(path), "two");
    EXPECT_EQ(listFiles(utf8(scratch.path())), std::vector<std::string>{"\u65E5\u672C \u0106.bqp"});
    EXPECT_TRUE(deleteFile(path));
    EXPECT_FALSE(fileExists(path));
}

TEST(WindowsFiles, aFileThatCannotBeReplacedStaysAndNothingIsLeftBehind) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("kept.ini", "old");
    const HANDLE inUse =
        CreateFileW(fromUtf8(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(errorOf([&] { saveFile(path, "new"); }), ErrorNumber::permissionDenied);
    EXPECT_FALSE(deleteFile(path));
    CloseHandle(inUse);
    EXPECT_EQ(readFileBytes(path), "old");
    EXPECT_EQ(listFiles(utf8(scratch.path())).size(), 1U);
}

TEST(WindowsFiles, aLockedFileIsDenied) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("locked.txt", "x");
    const HANDLE lock = CreateFileW(fromUtf8(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(errorOf([&] { readFileBytes(path); }), ErrorNumber::permissionDenied);
    CloseHandle(lock);
}

TEST(WindowsFiles, hiddenOnesAreNotListed) {
    const ScratchDirectory scratch;
    for (const char* name : {"b.bqp", "hidden.bqp"}) scratch.write(name, "");
    SetFileAttributesW((scratch.path() / L"hidden.bqp").c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(listFiles(utf8(scratch.path())), std::vector<std::string>{"b.bqp"});
    EXPECT_TRUE(listFiles("").empty());
}

TEST(WindowsFiles, devicesAreWrittenDirectly) {
    const ScratchDirectory scratch;
    const std::string before = currentDirectory();
    changeDirectory(utf8(scratch.path()));
    writeFile("NUL", "gone");
    EXPECT_TRUE(listFiles(utf8(scratch.path())).empty());
    changeDirectory(before);
}

}  // namespace
}  // namespace brasquelin
