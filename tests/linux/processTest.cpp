#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "app/batchFile.h"
#include "app/jobList.h"
#include "app/startUp.h"
#include "config/configFile.h"
#include "linux/processState.h"
#include "platform/childProcess.h"
#include "platform/directoryLock.h"
#include "platform/files.h"
#include "platform/jobShell.h"
#include "platform/paths.h"
#include "platform/systemLock.h"
#include "support/becomesTrue.h"
#include "support/programTest.h"
#include "text/text.h"
#include "vars/rememberedValues.h"

namespace brasquelin {
namespace {

class LinuxProcesses : public ProgramTest {
  protected:
    /// Runs a command with the system's own processes and real time.
    static void runForReal(const std::string& command) {
        auto& table = systemProcessTable();
        const std::uint32_t child = table.start(command, WindowStyle::hidden);
        EXPECT_TRUE(becomesTrue([&] { return !table.isRunning(child); }));
    }
    void makeProgram(const std::string& name, const std::string& script) const {
        writeBytes(name, "#!/bin/sh\n" + script);
        std::filesystem::permissions(folder() + "/" + name, std::filesystem::perms::owner_all);
    }
};

TEST_F(LinuxProcesses, BatchFilesRunLineByLineInOneShell) {
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

TEST_F(LinuxProcesses, LaunchersRunBatchFilesWithTheShippedScript) {
    writeBytes("my batch.bat", "read line\r\necho \"<$line>\"\r\n");
    const std::string script = BRASQUELIN_SOURCE "/launchers/linux/brasquelin-batch";
    runForReal("cd '" + folder() + "' && echo 'a  b' | sh '" + script + "' Brasquelin my batch.bat > out.txt");
    EXPECT_EQ(read("out.txt"), "read line\necho \"<$line>\"\n<a  b>\n");
}

TEST_F(LinuxProcesses, OnlyExitEndsABatchInAnyShell) {
    changeDirectory(folder());
    if (std::system("command -v bash >/dev/null && ln -s \"$(command -v bash)\" sh") != 0) GTEST_SKIP() << "no bash";
    const Lines lines{"x=1; f() { echo \"f $x\"; }; cd /",
                      ": ${none:?}",
                      "f",
                      "echo $((1/0))",
                      ": >/none/x",
                      "set -u",
                      "echo $none",
                      "set +u",
                      "alias hi='echo alias'",
                      ": ${none:?}",
                      "hi; pwd",
                      "false || exit 5",
                      "echo never",
                      "// comment",
                      "echo never"};
    std::string echoed;
    std::vector<ShellLine> numbered;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        numbered.push_back({onlyPreparesShell(lines[i]) ? 0 : i + 1, lines[i]});
        if (i < 12) echoed += lines[i] + (i == 2 ? "\nf 1\n" : i == 10 ? "\nalias\n/\n" : "\n");
    }
    write("my.bat", lines);
    writeBytes("script", shellScript(numbered, {folder() + "/script", {}, "none", "none"}, "mark"));
    for (const std::string shell : {"/bin/sh", "bash", "bash --posix", "./sh"}) {
        const auto run = [&](const std::string& command) {
            std::string line = shell;
            line.append(" ").append(command).append(" >out.txt 2>errors.txt");
            return WEXITSTATUS(std::system(line.c_str()));
        };
        EXPECT_EQ(run("'" BRASQUELIN_SOURCE "/launchers/linux/brasquelin-batch' my.bat"), 5) << shell;
        EXPECT_EQ(read("out.txt"), echoed) << shell;
        EXPECT_NE(read("errors.txt").find("ended before the last line; lines left: 2\n"), std::string::npos) << shell;
        EXPECT_EQ(run("-c '. ./script' brasquelin-batch my.bat 7>journal 8>marks"), 5) << shell;
        EXPECT_EQ(read("out.txt"), "f 1\nalias\n/\n") << shell;
        std::string journal;
        for (const auto& line : splitLines(read("journal"))) journal += line.substr(0, line.find(' ') + 1);
        EXPECT_EQ(journal, "1 2 3 4 5 7 10 11 ") << shell;
    }
    for (const std::string shell : {"bash", "./sh"}) {  // a signal is no mistake
        write("my.bat", {"kill $$", "echo never"});
        EXPECT_EQ(
            WTERMSIG(std::system(
                ("exec " + shell + " '" BRASQUELIN_SOURCE "/launchers/linux/brasquelin-batch' my.bat >out.txt 2>&1")
                    .c_str())),
            SIGTERM);
        EXPECT_EQ(read("out.txt").find("echo never"), std::string::npos);
    }
}

TEST_F(LinuxProcesses, TheFirstWordOfACommandIsLookedUp) {
    for (const char* name : {"it's a tool", "sort"}) makeProgram(name, "echo \"$1\" > \"$(dirname \"$0\")/out.txt\"\n");
    write("plain", {"no program"});
    changeDirectory(folder());
    const std::vector<std::pair<std::string, std::string>> found{
        {"\"" + folder() + "\\It's a tool.exe\" 'a  b'", "a  b\n"},
        {"\"sort\" mine", "mine\n"},  // of the current directory, before any other
        {"./Sort.EXE 'c  d'", "c  d\n"},
        {"\"echo\" found on the way > out.txt", "found on the way\n"}};
    for (const auto& [command, said] : found) {
        runForReal(command);
        EXPECT_EQ(read("out.txt"), said) << command;
    }
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

TEST_F(LinuxProcesses, ALauncherThatIsMissingLeavesTheJobListAlone) {
    setProcessTable(nullptr);
    setClock(nullptr);
    for (const std::string launcher : {"brasquelin-none -e", "env brasquelin-none"}) {
        settings.shellExec = launcher;
        jobList.clear();
        jobList.append("echo a");
        EXPECT_EQ(errorOf(runBatchAndWait), ErrorNumber::fileNotFound) << launcher;
        EXPECT_EQ(errorOf(executeJobList), ErrorNumber::fileNotFound) << launcher;
        EXPECT_EQ(jobList.size(), 1U);
    }
    EXPECT_FALSE(desktop_.hadFailure());
    write("Brasquelin.ini", {"[config]", "ShellExec = brasquelin-none -e", "[/config]"});
    write("list.txt", {});
    desktop_.windows = false;
    startUp("-f " + folder() + "/list.txt");
    EXPECT_EQ(messages(), Lines{"Brasquelin Error: Error 53 : File not found\r\nWhile writting '" + folder() +
                                "/brasquelin.bat'\r\n'brasquelin-none'"});
    EXPECT_TRUE(desktop_.hadFailure());
}

TEST_F(LinuxProcesses, AnswersOfSeveralStartsAreAllRemembered) {
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

TEST_F(LinuxProcesses, TheLockOfADeadStartIsFree) {
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

TEST_F(LinuxProcesses, ALauncherIsTold) {
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
    EXPECT_TRUE(becomesTrue([this] { return read("out.txt") == "done\n"; }));

    EXPECT_FALSE(desktop_.hadFailure());
    settings.shellExec.clear();
    jobList.clear();
    jobList.append("kill -KILL $$");
    runBatchAndWait();
    EXPECT_TRUE(desktop_.hadFailure());
    EXPECT_NE(messages().back().find("ended by signal 9"), std::string::npos);
}

TEST_F(LinuxProcesses, ChildrenEndTogetherWithWhatTheyStarted) {
    setClock(nullptr);
    auto& table = systemProcessTable();
    const std::string stubborn = "sh -c 'trap \"\" TERM; echo $$ > id.txt; while :; do sleep 0.05; done' & wait";
    changeDirectory(folder());
    const std::uint32_t child = table.startToWaitFor(stubborn, WindowStyle::hidden);
    ASSERT_TRUE(becomesTrue([this] { return read("id.txt").ends_with('\n'); }));
    const pid_t grandchild = std::stoi(read("id.txt"));
    EXPECT_TRUE(table.terminate(child));
    EXPECT_TRUE(ends(grandchild));
    kill(grandchild, SIGKILL);
}

}  // namespace
}  // namespace brasquelin
