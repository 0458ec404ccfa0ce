// The program itself, as a child process without a display, in a copy of its own directory.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include "linux/processState.h"
#include "support/programTest.h"
#include "text/text.h"

#ifdef BRASQUELIN_PROGRAM

namespace brasquelin {
namespace {

class Executable : public ProgramTest {
  protected:
    void SetUp() override {
        const auto built = std::filesystem::path(BRASQUELIN_PROGRAM).parent_path();
        for (const char* part : {"brasquelin", "plugins", "profiles", "libraries", "functions", "material", "temp"}) {
            std::filesystem::copy(built / part, folder() + "/" + part, std::filesystem::copy_options::recursive);
        }
        std::filesystem::copy(built / "Brasquelin.ini", folder() + "/Brasquelin.ini");
        std::filesystem::copy(built / "list.txt", folder() + "/list.txt");
        // The real tools would go on working in the directory while it is removed.
        for (const char* tool : {"bin/update-mime-database", "bin/update-desktop-database"}) {
            writeBytes(tool, "#!/bin/sh\n");
            std::filesystem::permissions(folder() + "/" + tool, std::filesystem::perms::owner_all);
        }
    }

    /// The exit status; what the program prints is in "out.txt" and "err.txt".
    int run(const std::string& arguments, const std::string& display = {}) {
        const std::string command = "cd '" + folder() + "' && env -u DISPLAY -u WAYLAND_DISPLAY " + display +
                                    " HOME='" + folder() + "' XDG_DATA_HOME='" + folder() + "/data' PATH='" + folder() +
                                    "/bin':\"$PATH\" ./brasquelin " + arguments + " >out.txt 2>err.txt </dev/null";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

TEST_F(Executable, ReplaysTheSampleListWithRealTools) {
    EXPECT_EQ(run("-f list.txt"), 0) << read("err.txt");
    EXPECT_EQ(read("err.txt"), "");
    for (const char* result : {"material.tar.gz", "release-2.0.tar.xz", "level-4.gz"}) {
        EXPECT_TRUE(exists("out/" + std::string(result))) << result;
    }
    EXPECT_NE(read("out.txt").find("\nRelease 2.0: 3 files, "), std::string::npos);
    EXPECT_NE(read("brasquelin.bat").find("\r\n// Plugin folderinfo loaded ...\r\n"), std::string::npos);
    EXPECT_EQ(read("temp/release-2.0.txt").substr(0, 27), "release-2.0\r\n------------\r\n");
    EXPECT_TRUE(exists("data/applications/brasquelin.desktop"));
}

TEST_F(Executable, AnswersOptionsBeforeAnythingElse) {
    for (const char* display : {"", "DISPLAY=:98765"}) {
        EXPECT_EQ(run("--version", display), 0);
        EXPECT_EQ(read("out.txt").find("Brasquelin "), 0U);
        EXPECT_EQ(run("--help x.bqp", display), 0);
        EXPECT_NE(read("out.txt").find("\n  brasquelin -f LIST"), std::string::npos);
        EXPECT_EQ(read("err.txt"), "");
        EXPECT_EQ(run("--nonsense=1 x.bqp", display), 2);
        EXPECT_EQ(read("out.txt"), "");
        EXPECT_EQ(read("err.txt"), "brasquelin: unknown option '--nonsense=1'; --help lists what there is\n");
    }
    EXPECT_FALSE(exists("data"));
}

TEST_F(Executable, TheDesktopEntryHasItsIcon) {
    run("-f none.txt");
    const std::string entry = read("data/applications/brasquelin.desktop");
    const auto icon = entry.find("\nIcon=" + folder() + "/");
    ASSERT_NE(icon, std::string::npos) << entry;
    const std::string path = entry.substr(icon + 6, entry.find('\n', icon + 1) - icon - 6);
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(BRASQUELIN_PROGRAM).parent_path() /
                                        std::filesystem::path(path).filename()));
}

TEST_F(Executable, ACheckThatSaysNoEndsTheProgramWithoutABatch) {
    std::filesystem::remove_all(folder() + "/material");
    EXPECT_EQ(run("profiles/release.bqp"), 1);  // asks for its variables
    EXPECT_NE(read("err.txt").find("release.bqp' cannot be asked for without a display"), std::string::npos);
    EXPECT_EQ(run("profiles/release.bqp 001=1"), 0);
    EXPECT_FALSE(exists("brasquelin.bat"));
}

TEST_F(Executable, TellsOnStandardErrorWhatItCannotDo) {
    EXPECT_EQ(run(""), 1);
    EXPECT_NE(read("err.txt").find("display"), std::string::npos);
    EXPECT_EQ(run("", "DISPLAY=:98765"), 1);
    EXPECT_NE(read("err.txt").find("is DISPLAY set properly?"), std::string::npos) << read("err.txt");
    EXPECT_EQ(run("-f none.txt"), 1);
    EXPECT_EQ(read("err.txt"), "Brasquelin Error: Error 53 : File not found\nWhile loading 'none.txt'\n");
    write("x.bqp", {"#Brasquelin Profile Test", "[profile]", "Nobody"});
    EXPECT_EQ(run("x.bqp"), 1);
    EXPECT_EQ(read("err.txt"), "Brasquelin: Error : unknown function 'Nobody' in file 'x.bqp' at line 3\n");
    EXPECT_FALSE(exists("brasquelin.bat"));
}

/// The program while its batch runs: "sh job.sh", from a list, at a terminal of its own or without one.
class RunningExecutable : public Executable {
  protected:
    ~RunningExecutable() override {
        if (program_ > 0) kill(program_, SIGKILL);
        if (terminal_ >= 0) close(terminal_);
    }

    void start(const std::string& job, bool atTerminal) {
        writeLibrary();
        write("list.txt", {"/x/brasquelin $exepath$/say.bqs 001=sh job.sh"});
        writeBytes("job.sh", job);
        if (terminal_ >= 0) close(terminal_);
        terminal_ = -1;
        program_ = atTerminal ? forkpty(&terminal_, nullptr, nullptr, nullptr) : fork();
        if (program_ == 0) runProgram(atTerminal, "list.txt");
    }
    void writeLibrary() const {
        write("say.bqs", {"#Brasquelin Library  Say", "[var]", "text", ".Type=Text", ".Info=none", "[/var]",
                          "[command]", "type=shell", "command=$text$", "[/command]"});
    }
    /// Starts the program with each list at once. How many of them end with status 0.
    int runAtOnce(const std::vector<std::string>& lists) const {
        std::vector<pid_t> programs;
        for (const auto& list : lists) {
            programs.push_back(fork());
            if (programs.back() == 0) runProgram(false, list);
        }
        int good = 0;
        for (const pid_t program : programs) {
            int status = 0;
            waitpid(program, &status, 0);
            good += status == 0 ? 1 : 0;
        }
        return good;
    }
    void runProgram(bool atTerminal, const std::string& list) const {
        if (chdir(folder().c_str()) != 0) _exit(99);
        const int null = open("/dev/null", O_RDWR);
        for (int descriptor = 0; !atTerminal && descriptor < 3; ++descriptor) dup2(null, descriptor);
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
        setenv("XDG_DATA_HOME", "/dev/null/none", 1);
        execl("./brasquelin", "brasquelin", "-f", list.c_str(), nullptr);
        _exit(99);
    }

    /// The process that the job noted.
    pid_t notedProcess() const {
        for (int i = 0; i < 2000 && read("id.txt").find('\n') == std::string::npos; ++i) usleep(5000);
        return std::atoi(read("id.txt").c_str());
    }
    /// The signal that ended the program, 0 when it ended by itself, -1 when it goes on.
    int endingSignal() {
        int status = 0;
        for (int i = 0; i < 2000; ++i) {
            if (waitpid(program_, &status, WNOHANG) == program_) {
                program_ = 0;
                return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
            }
            usleep(5000);
        }
        return -1;
    }

    pid_t program_ = 0;
    int terminal_ = -1;
};

TEST_F(RunningExecutable, SignalsEndTheBatchAndThenTheProgram) {
    const std::string job =
        "trap 'sleep 0.1; echo cleaned > cleaned.txt; exit' TERM\n"
        "sleep 1000 & echo $! > id.txt; wait\n";
    for (const bool atTerminal : {false, true}) {
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            start(job, atTerminal);
            const pid_t sleeper = notedProcess();
            ASSERT_GT(sleeper, 0);
            kill(program_, signal);
            EXPECT_EQ(endingSignal(), signal) << atTerminal;
            EXPECT_TRUE(ends(sleeper)) << signal << atTerminal;
            EXPECT_TRUE(exists("cleaned.txt")) << signal << atTerminal;
            kill(sleeper, SIGKILL);
            remove("id.txt");
            remove("cleaned.txt");
        }
    }
}

TEST_F(RunningExecutable, StartsInOneDirectoryDoNotGetInEachOthersWay) {
    writeLibrary();
    std::filesystem::remove(folder() + "/Brasquelin.ini");
    write("Brasquelin.ini", {});
    std::vector<std::string> lists;
    for (int i = 10; i < 30; ++i) {
        const std::string number = std::to_string(i);
        lists.push_back("list-" + number);
        write(lists.back(), {"/x/brasquelin $exepath$/say.bqs 001=echo " + number + " >> out.txt"});
    }
    EXPECT_EQ(runAtOnce(lists), 20);
    std::vector<std::string> lines = splitLines(read("out.txt"));
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(std::unique(lines.begin(), lines.end()) - lines.begin(), 20) << read("out.txt");

    writeBytes("ask.exe", "#!/bin/sh\nsleep 0.1\necho \"answer = $1\" > ask.var\n");
    std::filesystem::permissions(folder() + "/ask.exe", std::filesystem::perms::owner_all);
    lists.clear();
    for (const std::string name : {"a", "b", "c"}) {
        lists.push_back("list-" + name);
        write(name + ".bqp",
              {"#Brasquelin Profile Ask", "[library]", ":include $exepath$/say.bqs",
               ":plugin $exepath$/ask.exe [param=" + name + "]", "[/library]", "[profile]", "Say",
               std::string(".text=echo ").append(name).append(" $answer$ > got-").append(name), "[/profile]"});
        write(lists.back(), {"/x/brasquelin $exepath$/" + name + ".bqp"});
    }
    EXPECT_EQ(runAtOnce(lists), 3);
    for (const std::string name : {"a", "b", "c"}) {
        EXPECT_EQ(splitLines(read("got-" + name)),
                  (std::vector<std::string>{std::string(name).append(" ").append(name)}));
    }
}

TEST_F(RunningExecutable, ABatchReadsTheTerminalAndItsKeysReachTheProgram) {
    start("echo $$ > id.txt; read line; echo \"<$line>\" > got.txt\n", true);
    ASSERT_GT(notedProcess(), 0);
    EXPECT_EQ(::write(terminal_, "hello\n", 6), 6);
    EXPECT_EQ(endingSignal(), 0);
    EXPECT_EQ(read("got.txt"), "<hello>\n");
    remove("id.txt");
    start("sleep 1000 & echo $! > id.txt; read line\n", true);
    const pid_t sleeper = notedProcess();
    EXPECT_EQ(::write(terminal_, "\x03", 1), 1);
    EXPECT_EQ(endingSignal(), SIGINT);
    EXPECT_TRUE(ends(sleeper));
    kill(sleeper, SIGKILL);
}

}  // namespace
}  // namespace brasquelin

#endif  // BRASQUELIN_PROGRAM
