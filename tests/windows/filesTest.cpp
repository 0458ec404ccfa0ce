#include "platform/files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "support/programTest.h"

namespace brasquelin {
namespace {

class WindowsFiles : public ProgramTest {
  protected:
    /// What becomes of the step while somebody else reads the file and shares this much of it.
    ErrorNumber errorWhileOpen(DWORD share, const std::function<void()>& step) const {
        const auto path = fromUtf8(folder() + "/kept.ini");
        const HANDLE inUse = CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
        const ErrorNumber error = errorOf(step);
        CloseHandle(inUse);
        return error;
    }
};

TEST_F(WindowsFiles, OneThatIsInUseIsDeniedAndStaysAndNothingIsLeftBehind) {
    writeBytes("kept.ini", "old");
    const std::string path = folder() + "/kept.ini";
    const auto replace = [&] {
        EXPECT_FALSE(deleteFile(path));
        saveFile(path, "new");
    };
    EXPECT_EQ(errorWhileOpen(FILE_SHARE_READ, replace), ErrorNumber::permissionDenied);
    EXPECT_EQ(errorWhileOpen(0, [&] { readFileBytes(path); }), ErrorNumber::permissionDenied);
    EXPECT_EQ(readFileBytes(path), "old");
    EXPECT_EQ(listFiles(folder()).size(), 1U);
}

TEST_F(WindowsFiles, OneThatIsReadOnlyIsDeniedAndOneThatOthersMayWriteIsWrittenInPlace) {
    writeBytes("kept.ini", "old");
    const std::string path = folder() + "/kept.ini";
    EXPECT_EQ(errorWhileOpen(FILE_SHARE_READ | FILE_SHARE_WRITE,
                             [&] {
                                 saveFile(path, "new");
                                 throw RunTimeError(ErrorNumber::overflow);
                             }),
              ErrorNumber::overflow);
    EXPECT_EQ(readFileBytes(path), "new");
    SetFileAttributesW(fromUtf8(path).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(errorOf([&] { saveFile(path, "newer"); }), ErrorNumber::permissionDenied);
    SetFileAttributesW(fromUtf8(path).c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(readFileBytes(path), "new");
    EXPECT_EQ(listFiles(folder()).size(), 1U);
}

TEST_F(WindowsFiles, HiddenOnesAreNotListedAndDevicesAreNoFiles) {
    for (const char* name : {"b.bqp", "hidden.bqp"}) write(name, {});
    SetFileAttributesW(fromUtf8(folder() + "/hidden.bqp").c_str(), FILE_ATTRIBUTE_HIDDEN);
    changeDirectory(folder());
    for (const std::string device : {"NUL", "\\\\.\\pipe\\none"}) {
        EXPECT_EQ(errorOf([&] { writeFile(device, "gone"); }), ErrorNumber::pathFileAccess);
    }
    EXPECT_EQ(errorOf([] { readFileBytes("NUL"); }), ErrorNumber::pathFileAccess);
    EXPECT_EQ(listFiles(folder()), Lines{"b.bqp"});
    EXPECT_TRUE(listFiles("").empty());
}

}  // namespace
}  // namespace brasquelin
