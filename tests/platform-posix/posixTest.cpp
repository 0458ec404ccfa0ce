#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "app/startUp.h"
#include "config/registerFileTypes.h"
#include "platform/childProcess.h"
#include "platform/codePages.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

class Posix : public ProgramTest {
  protected:
    /// Runs a command with the system's own processes and real time.
    void runForReal(const std::string& command) {
        auto& table = systemProcessTable();
        const std::uint32_t child = table.start(command, WindowStyle::hidden);
        while (table.isRunning(child)) usleep(2000);
    }
    void makeProgram(const std::string& name, const std::string& script) const {
        writeBytes(name, "#!/bin/sh\n" + script);
        chmod((folder() + "/" + name).c_str(), 0755);
    }
};

TEST_F(Posix, PathsAreFoundInAnyLetterCaseAndWithEitherSeparator) {
    write("Lib/Été.txt", {"x"});
    write("both/a", {"lower"});
    write("both/A", {"upper"});
    EXPECT_EQ(resolvePath(folder() + "\\LIB\\éTÉ.TXT"), folder() + "/Lib/Été.txt");
    EXPECT_EQ(resolvePath(folder() + "/both/a"), folder() + "/both/a");
    EXPECT_EQ(resolvePath(folder() + "/LIB/new.txt"), folder() + "/Lib/new.txt");
    EXPECT_EQ(shortPath(folder() + "\\lib\\"), folder() + "/Lib");
    writeFile(folder() + "\\LIB\\ÉTÉ.TXT", "y");
    EXPECT_EQ(read("Lib/Été.txt"), "y");
    EXPECT_TRUE(isFileSystemRoot("/"));
}

TEST_F(Posix, RelativePathsWithADirectoryAreAnchored) {
    write("sub/x.bqp", {});
    changeDirectory(folder());
    EXPECT_EQ(anchoredPath("sub\\X.bqp"), folder() + "/sub/x.bqp");
    EXPECT_EQ(anchoredPath("x.bqp"), "x.bqp");
    EXPECT_EQ(anchoredPath("sub/none.bqp"), "sub/none.bqp");
}

TEST_F(Posix, ReplacingKeepsPermissionsLinksAndDevices) {
    write("real.txt", {"x"});
    chmod((folder() + "/real.txt").c_str(), 0640);
    ASSERT_EQ(symlink("real.txt", (folder() + "/link.txt").c_str()), 0);
    saveFile(folder() + "/link.txt", "new");
    EXPECT_TRUE(isLink(folder() + "/link.txt"));
    EXPECT_EQ(read("real.txt"), "new");
    struct stat status {};
    stat((folder() + "/real.txt").c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    EXPECT_NO_THROW(writeFile("/dev/null", "x"));
    EXPECT_EQ(errorOf([] { writeFile("/dev/full", "x"); }), ErrorNumber::diskFull);
}

TEST_F(Posix, BatchFilesRunLineByLineInOneShell) {
    writeBytes("my batch.bat", "cd '" + folder() +
                                   "'\r\n// a comment\r\nx=caf\xC3\xA9\r\nif (;\r\necho $x > out.txt\r\n"
                                   "exec 3<&0; echo more >> out.txt");
    runForReal(folder() + "/my batch.bat");
    EXPECT_EQ(read("out.txt"), "café\nmore\n");
}

TEST_F(Posix, ProgramsAreFoundWithoutTheirExtensionAndErrorsAreTold) {
    makeProgram("it's a tool", "echo \"$1\" > \"$(dirname \"$0\")/out.txt\"\n");
    runForReal("\"" + folder() + "\\It's a tool.exe\" 'a b'");
    EXPECT_EQ(read("out.txt"), "a b\n");
    write("plain.exe", {"no program"});
    auto& table = systemProcessTable();
    const auto start = [&](const std::string& command) { table.start(command, WindowStyle::hidden); };
    EXPECT_EQ(errorOf([&] { start("\"" + folder() + "/none.exe\" x"); }), ErrorNumber::fileNotFound);
    if (access((folder() + "/plain.exe").c_str(), X_OK) != 0) {
        EXPECT_EQ(errorOf([&] { start("\"" + folder() + "/plain.exe\" x"); }), ErrorNumber::permissionDenied);
    }
    EXPECT_EQ(errorOf([&] { start(""); }), ErrorNumber::invalidCall);
}

TEST_F(Posix, ChildrenAreEndedOnceAndOnlyIfTheyAreOurs) {
    setClock(nullptr);
    auto& table = systemProcessTable();
    const std::uint32_t child = table.start("sleep 60", WindowStyle::hidden);
    EXPECT_TRUE(table.isRunning(child));
    EXPECT_TRUE(table.terminate(child));
    EXPECT_FALSE(table.isRunning(child));
    EXPECT_FALSE(table.terminate(child));
    EXPECT_FALSE(table.terminate(1));
}

TEST_F(Posix, ListFilesMayBeInCodePage850) {
    write("Brasquelin.ini", {});
    write("say.bqs", {"#Brasquelin Library  Say", "[var]", "text", ".Type=Text", ".Info=none", "[/var]", "[command]",
                      "type=shell", "command=echo $text$", "[/command]"});
    writeBytes("list.txt", "/x/brasquelin " + folder() + "/say.bqs 001=caf\x82\n");
    EXPECT_EQ(exitStatusOf([this] { startUp("-f " + folder() + "/list.txt"); }), 0);
    EXPECT_EQ(read("brasquelin.bat"), "echo café\r\n");
    EXPECT_EQ(decodeOem("\x82t\x82"), "été");
    EXPECT_EQ(decodeOem("été"), "été");
    EXPECT_EQ(decodeFile("\x81"), "\xC2\x81");  // undefined in the code page
}

TEST_F(Posix, FileTypesAreRegisteredBelowTheUsersData) {
    const char* before = std::getenv("XDG_DATA_HOME");
    const std::string restored = before != nullptr ? before : "";
    setenv("XDG_DATA_HOME", (folder() + "/data").c_str(), 1);
    registerFileTypes();
    registerFileTypes();
    const std::string entry = read("data/applications/brasquelin.desktop");
    EXPECT_NE(entry.find("Exec=\"" + folder() + "/brasquelin\" %f\n"), std::string::npos);
    EXPECT_NE(read("data/mime/packages/brasquelin.xml").find("*.bqp"), std::string::npos);
    writeBytes("blocked", "a file where a directory is needed");
    setenv("XDG_DATA_HOME", (folder() + "/blocked").c_str(), 1);
    EXPECT_NO_THROW(registerFileTypes());
    setenv("XDG_DATA_HOME", restored.c_str(), 1);
}

}  // namespace
}  // namespace brasquelin
