#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <map>

#include "app/batchFile.h"
#include "app/jobList.h"
#include "app/startUp.h"
#include "config/clearDirectory.h"
#include "config/configFile.h"
#include "config/registerFileTypes.h"
#include "linux/processState.h"
#include "platform/childProcess.h"
#include "platform/directoryLock.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/systemLock.h"
#include "support/programTest.h"
#include "text/text.h"
#include "vars/rememberedValues.h"

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

TEST_F(Posix, ReplacingKeepsPermissionsDevicesAndLinksOfAnyLetterCase) {
    write("real.txt", {"x"});
    chmod((folder() + "/real.txt").c_str(), 0640);
    ASSERT_EQ(symlink("real.txt", (folder() + "/Link.txt").c_str()), 0);
    write("LINK.TXT", {"another file"});
    saveFile(folder() + "/Link.txt", "new");
    EXPECT_TRUE(isLink(folder() + "/Link.txt"));
    EXPECT_EQ(read("real.txt"), "new");
    struct stat status {};
    stat((folder() + "/real.txt").c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    EXPECT_NO_THROW(writeFile("/dev/null", "x"));
    EXPECT_EQ(errorOf([] { writeFile("/dev/full", "x"); }), ErrorNumber::diskFull);
}

TEST_F(Posix, AWriteThatFailsLeavesTheOldFileAlone) {
    write("kept.txt", {"old"});
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{64, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const ErrorNumber error = errorOf([this] { saveFile(folder() + "/kept.txt", std::string(1000, 'x')); });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(error, ErrorNumber::pathFileAccess);
    EXPECT_EQ(read("kept.txt"), "old\r\n");
    EXPECT_EQ(listFiles(folder()), std::vector<std::string>{"kept.txt"});
}

TEST_F(Posix, OnlyTheDirectoryThatIsNamedExactlyIsCleared) {
    write("real/prog/keep.txt", {});
    write("real/keep.txt", {});
    write("tmp/a.txt", {});
    const auto link = [this](const std::string& target, const std::string& name) {
        ASSERT_EQ(symlink(target.c_str(), (folder() + "/" + name).c_str()), 0);
    };
    link(folder() + "/real/prog", "link");
    link("/usr", "usr");
    setProgramDirectory(folder() + "/link");
    for (const char* guarded : {"/link", "/link/.", "/link/..", "/real", "/real//./", "/tmp/../real/prog/"}) {
        clearDirectory(folder() + guarded);
    }
    clearDirectory(folder() + "/TMP");
    EXPECT_TRUE(exists("real/prog/keep.txt"));
    EXPECT_TRUE(exists("real/keep.txt"));
    EXPECT_TRUE(exists("tmp/a.txt"));
    clearDirectory(folder() + "/link\\..\\..\\tmp\\");
    EXPECT_FALSE(exists("tmp/a.txt"));
    for (const std::string root : {"/", "//", "/.", "/..", "\\"}) EXPECT_TRUE(isFileSystemRoot(root)) << root;
    EXPECT_TRUE(isFileSystemRoot(folder() + "/usr/.."));
    EXPECT_FALSE(isFileSystemRoot(folder() + "/usr"));
}

TEST_F(Posix, NamesThatSpellAWayElsewhereAreNotFollowed) {
    write("keep.txt", {"x"});
    write("tmp/sub/inner/x", {});  // too deep to go
    write("tmp/sub\\..\\..\\keep.txt", {"x"});
    write("tmp/gone.txt", {"x"});
    clearDirectory(folder() + "/tmp");
    EXPECT_TRUE(exists("keep.txt"));
    EXPECT_FALSE(exists("tmp/gone.txt"));
}

TEST_F(Posix, TheProgramDirectoryIsNotClearedByAnotherName) {
    write("real/program/keep.txt", {"x"});
    ASSERT_EQ(symlink("real", (folder() + "/other").c_str()), 0);
    ASSERT_EQ(symlink("../../real/program", (folder() + "/real/program/inside").c_str()), 0);
    setProgramDirectory(folder() + "/real/program");
    clearDirectory(folder() + "/other/program");
    clearDirectory(folder() + "/other/");
    write("elsewhere/keep.txt", {"x"});
    ASSERT_EQ(symlink("elsewhere", (folder() + "/link").c_str()), 0);
    clearDirectory(folder() + "/link/");
    EXPECT_TRUE(exists("elsewhere/keep.txt"));
    clearDirectory(folder() + "/real/program/inside/..");
    EXPECT_TRUE(exists("real/program/keep.txt"));
}

TEST_F(Posix, BatchFilesRunLineByLineInOneShell) {
    writeBytes("my batch.bat", "cd '" + folder() +
                                   "'\r\n// a comment\r\nx=caf\xC3\xA9\xC3\x81\r\nif (;\r\n. ./none\r\n"
                                   "echo $x 'a\\q' > out.txt\r\n"
                                   "readlink /proc/self/fd/* | grep -c 'my batch' >> out.txt\r\n"
                                   "exec 3<&0; echo more >> out.txt");
    runForReal(folder() + "/my batch.bat >/dev/null 2>&1");  // no batch file but a command
    EXPECT_FALSE(exists("out.txt"));
    runForReal("\"" + folder() + "/my batch.bat\"");
    EXPECT_EQ(read("out.txt"), "caféÁ a\\q\n0\nmore\n");
}

TEST_F(Posix, LaunchersRunBatchFilesWithTheShippedScript) {
    writeBytes("my batch.bat", "read line\r\necho \"<$line>\"\r\n");
    const std::string script = BRASQUELIN_SOURCE "/launchers/linux/brasquelin-batch";
    runForReal("cd '" + folder() + "' && echo 'a  b' | sh '" + script + "' Brasquelin my batch.bat > out.txt");
    EXPECT_EQ(read("out.txt"), "read line\necho \"<$line>\"\n<a  b>\n");
}

TEST_F(Posix, ProgramsAreFoundWithoutTheirExtension) {
    makeProgram("it's a tool", "echo \"$1\" > \"$(dirname \"$0\")/out.txt\"\n");
    runForReal("\"" + folder() + "\\It's a tool.exe\" 'a b'");
    EXPECT_EQ(read("out.txt"), "a b\n");
    changeDirectory(folder());
    makeProgram("sort", "echo mine > out.txt\n");
    runForReal("\"sort\"");  // of the current directory, before any other
    EXPECT_EQ(read("out.txt"), "mine\n");
    runForReal("\"echo\" found on the way > out.txt");
    EXPECT_EQ(read("out.txt"), "found on the way\n");
}

TEST_F(Posix, TheFirstWordOfACommandIsLookedUp) {
    makeProgram("tool", "echo \"$1\" > \"$(dirname \"$0\")/out.txt\"\n");
    write("plain", {"no program"});
    changeDirectory(folder());
    runForReal("./Tool.EXE 'a  b'");
    EXPECT_EQ(read("out.txt"), "a  b\n");
    const std::string none = "brasquelin-none";
    for (const auto& command : {none + " -e x", " " + none + " \"a;b\" 'c|d' \\;", "./" + none, "'./" + none + "'"}) {
        EXPECT_EQ(errorOf([&] { runForReal(command); }), ErrorNumber::fileNotFound) << command;
    }
    for (const auto* command : {"./plain x", "./ x"}) {
        EXPECT_EQ(errorOf([&] { runForReal(command); }), ErrorNumber::permissionDenied) << command;
    }
    // What the shell itself knows, or what only it can take apart.
    for (const auto& command :
         {std::string("exit 3"), std::string("if true; then exit; fi"), "x=1 " + none + " 2>/dev/null",
          none + " 2>/dev/null || exit", std::string("$brasquelin_none"), std::string("[ x ]")}) {
        EXPECT_NO_THROW(runForReal(command)) << command;
    }
}

TEST_F(Posix, ALauncherThatIsMissingLeavesTheJobListAlone) {
    setProcessTable(nullptr);
    settings.shellExec = "brasquelin-none -e";
    jobList.append("echo a");
    EXPECT_EQ(errorOf(executeJobList), ErrorNumber::fileNotFound);
    EXPECT_EQ(jobList.size(), 1U);
    write("Brasquelin.ini", {"[config]", "ShellExec = brasquelin-none -e", "[/config]"});
    write("list.txt", {});
    desktop_.windows = false;
    startUp("-f " + folder() + "/list.txt");
    EXPECT_EQ(messages(), std::vector<std::string>{"Brasquelin Error: Error 53 : File not found\r\nWhile writting '" +
                                                   folder() + "/brasquelin.bat'\r\n'brasquelin-none'"});
    EXPECT_TRUE(desktop_.hadFailure());
}

TEST_F(Posix, AnswersOfSeveralStartsAreAllRemembered) {
    setClock(nullptr);
    std::vector<pid_t> starts;
    for (int i = 0; i < 8; ++i) {
        starts.push_back(fork());
        if (starts.back() != 0) continue;
        for (int k = 0; k < 5; ++k) rememberValue("key" + std::to_string(10 * i + k), "x");
        _exit(0);
    }
    for (const pid_t start : starts) waitpid(start, nullptr, 0);
    EXPECT_EQ(splitLines(read("pop.tmp")).size(), 40U);
}

TEST_F(Posix, TheLockOfADeadStartIsFree) {
    setClock(nullptr);
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        const DirectoryLock lock;
        EXPECT_EQ(::write(ready[1], "x", 1), 1);
        for (;;) pause();
    }
    char byte = 0;
    EXPECT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_FALSE(tryLockDirectory(folder()));
    desktop_.onEvents = [&] { kill(other, SIGKILL); };
    const DirectoryLock lock;
    const DirectoryLock inside;
    waitpid(other, nullptr, 0);
    close(ready[0]);
    close(ready[1]);
    EXPECT_TRUE(listFiles(folder()).empty());
}

TEST_F(Posix, ALauncherIsTold) {
    setProcessTable(nullptr);
    setClock(nullptr);
    std::filesystem::create_directory(folder() + "/it's $a program");
    setProgramDirectory(folder() + "/it's $a program");
    jobList.append("echo done > '" + folder() + "/out.txt'; brasquelin-none");
    const std::string runner = exeDirectory() + "/brasquelin-batch";
    std::filesystem::copy_file(BRASQUELIN_SOURCE "/launchers/linux/brasquelin-batch", runner);
    std::filesystem::permissions(runner, std::filesystem::perms::owner_all);
    settings.shellExec = "env " + runner;  // as xterm is told
    EXPECT_NO_THROW(runBatchAndWait());    // the command that fails is the batch's own
    EXPECT_EQ(read("out.txt"), "done\n");
    remove("out.txt");
    desktop_.onEvents = [] { executeJobList(); };  // a second click starts nothing
    EXPECT_EQ(exitStatusOf(executeJobList), 0);
    desktop_.onEvents = nullptr;
    for (int i = 0; i < 1000 && read("out.txt").empty(); ++i) usleep(2000);
    EXPECT_EQ(read("out.txt"), "done\n");

    settings.shellExec = "env brasquelin-none";
    EXPECT_EQ(errorOf(runBatchAndWait), ErrorNumber::fileNotFound);
    EXPECT_EQ(errorOf(executeJobList), ErrorNumber::fileNotFound);
    EXPECT_FALSE(desktop_.hadFailure());
    settings.shellExec.clear();
    jobList.clear();
    jobList.append("kill -KILL $$");
    runBatchAndWait();
    EXPECT_TRUE(desktop_.hadFailure());
    EXPECT_NE(messages().back().find("ended by signal 9"), std::string::npos);
}

TEST_F(Posix, ChildrenEndTogetherWithWhatTheyStarted) {
    setClock(nullptr);
    auto& table = systemProcessTable();
    const std::string stubborn = "sh -c 'trap \"\" TERM; echo $$ > id.txt; while :; do sleep 0.05; done' & wait";
    changeDirectory(folder());
    const std::uint32_t child = table.startToWaitFor(stubborn, WindowStyle::hidden);
    while (read("id.txt").empty()) usleep(2000);
    const pid_t grandchild = std::stoi(read("id.txt"));
    EXPECT_TRUE(table.terminate(child));
    EXPECT_TRUE(ends(grandchild));
    kill(grandchild, SIGKILL);
}

class PosixFileTypes : public Posix {
  protected:
    PosixFileTypes() {
        // The tools that update the databases only tell that they were called.
        for (const char* tool : {"update-mime-database", "update-desktop-database"}) {
            makeProgram("bin/" + std::string(tool), "echo \"${0##*/} $1\" >> '" + folder() + "/calls.txt'\n");
        }
        set("PATH", folder() + "/bin:" + std::getenv("PATH"));
        set("XDG_DATA_HOME", folder() + "/data");
    }
    ~PosixFileTypes() override {
        for (const auto& [name, value] : before_) setenv(name.c_str(), value.c_str(), 1);
    }
    void set(const std::string& name, const std::string& value) {
        const char* before = std::getenv(name.c_str());
        before_.emplace(name, before != nullptr ? before : "");
        setenv(name.c_str(), value.c_str(), 1);
    }
    std::size_t toolCalls(std::size_t expected) const {
        std::size_t calls = 0;
        for (int i = 0; i < 1000 && calls < expected; ++i, usleep(2000)) calls = splitLines(read("calls.txt")).size();
        return calls;
    }

  private:
    std::map<std::string, std::string> before_;
};

TEST_F(PosixFileTypes, AreKeptBelowTheUsersData) {
    std::filesystem::create_directory(folder() + "/a $b 5%");
    setProgramDirectory(folder() + "/a $b 5%");
    registerFileTypes();
    EXPECT_EQ(toolCalls(2), 2U);
    const std::string entry = read("data/applications/brasquelin.desktop");
    EXPECT_NE(entry.find("Exec=\"" + folder() + "/a \\\\$b 5%%/brasquelin\" %f\n"), std::string::npos) << entry;
    const std::string package = read("data/mime/packages/brasquelin.xml");
    EXPECT_NE(package.find("\"*.bqp\""), std::string::npos);
    EXPECT_NE(package.find("\"*.bqs\""), std::string::npos);
}

TEST_F(PosixFileTypes, UpdateTheDatabasesOnlyAfterAChange) {
    registerFileTypes();
    EXPECT_EQ(toolCalls(2), 2U);
    writeBytes("data/applications/brasquelin.desktop", "changed by somebody");
    registerFileTypes();
    EXPECT_EQ(toolCalls(3), 3U);
    EXPECT_EQ(splitLines(read("calls.txt")).back(), "update-desktop-database " + folder() + "/data/applications");
}

TEST_F(PosixFileTypes, FailSilently) {
    writeBytes("blocked", "a file where a directory is needed");
    set("XDG_DATA_HOME", folder() + "/blocked");
    EXPECT_NO_THROW(registerFileTypes());
    EXPECT_EQ(read("blocked"), "a file where a directory is needed");
}

}  // namespace
}  // namespace brasquelin
