// What only Linux can show of the program: the real tools of the samples, no display, signals and terminals.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "linux/processState.h"
#include "linux/programRun.h"
#include "support/becomesTrue.h"
#include "text/text.h"

namespace brasquelin {
namespace {

class LinuxExecutable : public testing::Test {
  protected:
    void copySamples() const {
        const auto built = std::filesystem::path(BRASQUELIN_PROGRAM).parent_path();
        for (const char* part :
             {"Brasquelin.ini", "plugins", "profiles", "libraries", "functions", "material", "temp", "list.txt"}) {
            std::filesystem::copy(
                built / part, program.path() / part,
                std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
        }
    }
    /// The program executes "sh job.sh" from a list.
    void startJob(const std::string& job, bool atTerminal) {
        program.writeLineLibrary();
        program.writeLines("list.txt", "/x/brasquelin $exepath$/line.bqs 001=sh job.sh");
        program.write("job.sh", job);
        atTerminal ? program.startAtTerminal("-f list.txt") : program.start("-f list.txt");
    }
    /// The process that the job noted.
    pid_t notedProcess() const {
        becomesTrue([this] { return program.read("id.txt").ends_with('\n'); });
        return std::atoi(program.read("id.txt").c_str());
    }
    /// Starts the program with each list at once. How many of them end with status 0.
    std::size_t runAtOnce(const Lines& lists) {
        std::string script = "rm -f good.txt; for list in";
        for (const auto& list : lists) script += ' ' + list;
        program.runShell(script + "; do (./brasquelin -f $list && echo >> good.txt) & done; wait");
        return splitLines(program.read("good.txt")).size();
    }

    LinuxRun program;
};

TEST_F(LinuxExecutable, ReplaysTheSampleListWithRealTools) {
    copySamples();
    EXPECT_EQ(program.run("-f list.txt"), 0);
    EXPECT_EQ(program.read("err.txt"), "");
    for (const char* result : {"material.tar.gz", "release-2.0.tar.xz", "level-4.gz"}) {
        EXPECT_TRUE(program.exists("out/" + std::string(result))) << result;
    }
    EXPECT_NE(program.read("out.txt").find("\nRelease 2.0: 3 files, "), std::string::npos);
    EXPECT_NE(program.read("brasquelin.bat").find("\r\n// Plugin folderinfo loaded ...\r\n"), std::string::npos);
    EXPECT_EQ(program.read("temp/release-2.0.txt").substr(0, 27), "release-2.0\r\n------------\r\n");

    const std::string entry = program.read("data/applications/brasquelin.desktop");
    const auto icon = entry.find("\nIcon=" + utf8(program.path()) + "/");
    ASSERT_NE(icon, std::string::npos) << entry;
    const std::filesystem::path picture = entry.substr(icon + 6, entry.find('\n', icon + 1) - icon - 6);
    EXPECT_TRUE(exists(std::filesystem::path(BRASQUELIN_PROGRAM).parent_path() / picture.filename()));
}

TEST_F(LinuxExecutable, TellsOnStandardErrorWhatItCannotDo) {
    program.write("x.bqp", "#Brasquelin Profile Test\n[profile]\nNobody");
    program.writeProfile("ask.bqp", "", "");
    const std::vector<std::pair<std::string, std::string>> told{
        {"./brasquelin", "display"},
        {"./brasquelin -f none.txt", "Brasquelin Error: Error 53 : File not found\nWhile loading 'none.txt'\n"},
        {"./brasquelin x.bqp", "Brasquelin: Error : unknown function 'Nobody' in file 'x.bqp' at line 3\n"},
        {"./brasquelin ask.bqp", "ask.bqp' cannot be asked for without a display"}};
    for (const auto& [command, text] : told) {
        EXPECT_EQ(program.runShell(command), 1) << command;
        EXPECT_NE(program.read("err.txt").find(text), std::string::npos) << command << program.read("err.txt");
    }
    EXPECT_FALSE(program.exists("brasquelin.bat"));
}

TEST_F(LinuxExecutable, TellsWhatItsWindowsLackAndWorksWithoutThem) {
    const std::string module = "brasquelin-windows.so";
    const auto built = std::filesystem::path(BRASQUELIN_PROGRAM).parent_path() / module;
    program.writeLineLibrary();
    program.writeLines("list.txt", "/x/brasquelin $exepath$/line.bqs 001=echo worked");
    const auto refused = [&] {
        EXPECT_EQ(program.runShell("DISPLAY=:98765 ./brasquelin"), 1);
        return program.read("err.txt");
    };
    const std::vector<std::string> needNone{"--version", "--check list.txt", "--dry-run -f list.txt", "-f list.txt",
                                            "--run brasquelin.bat"};
    for (const auto& lacking : {"The windows are not part of this installation ('" + utf8(program / module),
                                std::string("Debian's package libwxgtk3.2-1): ")}) {
        EXPECT_NE(refused().find(lacking), std::string::npos) << program.read("err.txt");
        for (const auto& option : needNone) {
            EXPECT_EQ(program.runShell("DISPLAY=:98765 ./brasquelin " + option), 0) << option;
        }
        EXPECT_NE(program.read("out.txt").find("\nworked\n"), std::string::npos);
        EXPECT_NE(program.read("err.txt").find(lacking), std::string::npos) << "no word of the missing run window";
        program.write(module, "no library");
    }
    if (!exists(built)) GTEST_SKIP() << "built without windows";
    std::filesystem::remove(program / module);
    std::filesystem::create_symlink(built, program / module);
    EXPECT_NE(refused().find("is DISPLAY set properly?"), std::string::npos);
}

TEST_F(LinuxExecutable, EachUserOfAnInstalledProgramHasADirectoryOfHisOwn) {
    program.writeLineLibrary();
    program.runShell(
        "mkdir -p shipped/sub && mv Brasquelin.ini shipped && mv line.bqs shipped/sub && echo >shipped/manual.html && "
        "echo 'echo tool' >shipped/sub/tool &&"
        " chmod 755 shipped/sub/tool && chmod 444 shipped/*.* shipped/*/*.*");
    program.writeLines("list.txt", "/x/brasquelin $exepath$/sub/line.bqs 001=sh tool");
    const std::string list = "./brasquelin -f list.txt";
    EXPECT_EQ(program.runShell(list + " & " + list + "; wait"), 0) << program.read("err.txt");
    EXPECT_NE(program.read("out.txt").find("\ntool\n"), std::string::npos) << program.read("out.txt");
    const std::filesystem::path own = program.path() / "data/brasquelin";
    EXPECT_TRUE(is_symlink(own / "brasquelin") && is_symlink(own / "sub/tool") && is_symlink(own / "manual.html"));
    EXPECT_FALSE(is_symlink(own / "Brasquelin.ini") || is_symlink(own / "sub/line.bqs"));
    EXPECT_TRUE(exists(own / "brasquelin.bat") && !program.exists("brasquelin.bat"));
    const std::filesystem::directory_iterator data(own.parent_path());
    EXPECT_TRUE(std::none_of(begin(data), end(data), [](const auto& entry) {
        return entry.path().filename().string().starts_with("brasquelin.new");
    }));

    program.write("data/brasquelin/sub/line.bqs", program.read("shipped/sub/line.bqs") + "#mine\r\n");
    EXPECT_EQ(program.runShell("data/brasquelin/brasquelin -f list.txt"), 0);
    EXPECT_TRUE(program.read("data/brasquelin/sub/line.bqs").ends_with("#mine\r\n"));
    EXPECT_EQ(program.runShell("XDG_DATA_HOME=/dev/null/x " + list), 1);
    EXPECT_NE(program.read("err.txt").find("'/dev/null/x/brasquelin'"), std::string::npos) << program.read("err.txt");
}

TEST_F(LinuxExecutable, SignalsEndTheBatchAndThenTheProgram) {
    const std::string job =
        "trap 'sleep 0.1; echo cleaned > cleaned.txt; exit' TERM\n"
        "sleep 1000 & echo $! > id.txt; wait\n";
    for (const bool atTerminal : {false, true}) {
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            startJob(job, atTerminal);
            const pid_t sleeper = notedProcess();
            ASSERT_GT(sleeper, 0);
            kill(static_cast<pid_t>(program.process()), signal);
            EXPECT_EQ(program.waitForEnd(), 128 + signal) << atTerminal;
            EXPECT_TRUE(ends(sleeper)) << signal << atTerminal;
            kill(sleeper, SIGKILL);
            EXPECT_TRUE(std::filesystem::remove(program.path() / "cleaned.txt")) << signal << atTerminal;
            std::filesystem::remove(program.path() / "id.txt");
        }
    }
}

TEST_F(LinuxExecutable, ASignalEndsARunWithAllThatItsJobsStarted) {
    program.write("x.bat",
                  "(trap '' TERM; setsid sh -c 'echo $$ >id.txt; sleep 60') & sleep 61\necho late >late.txt\n");
    for (const int signal : {SIGTERM, SIGHUP}) {
        std::filesystem::remove(program.path() / "id.txt");
        program.start("--run x.bat");
        const pid_t started = notedProcess();
        kill(static_cast<pid_t>(program.process()), signal);
        EXPECT_EQ(program.waitForEnd(), 126);
        EXPECT_TRUE(ends(started));
        EXPECT_FALSE(program.exists("late.txt"));
        EXPECT_NE(program.read("x.joblog").find("\t0\t15\t(trap"), std::string::npos);
    }
}

TEST_F(LinuxExecutable, ARunThatWasKilledRepeatsNothingThatHadEnded) {
    std::string jobs;
    for (int i = 1; i <= 200; ++i) jobs += "echo " + std::to_string(i) + " >>done.txt; sleep 0.002\n";
    program.write("x.bat", jobs);
    for (std::size_t wanted = 30; wanted < 200; wanted += 60) {
        program.start("--run --resume x.bat");
        becomesTrue([&] { return splitLines(program.read("done.txt")).size() >= wanted; });
        program.endByForce();  // its shell ends at its next mark
        usleep(20000);
    }
    EXPECT_EQ(program.run("--run --resume x.bat"), 0);
    EXPECT_EQ(splitLines(program.read("done.txt")).size(), 200U);
    EXPECT_EQ(splitLines(program.read("x.joblog")).size(), 201U);
}

TEST_F(LinuxExecutable, StartsInOneDirectoryDoNotGetInEachOthersWay) {
    program.writeLineLibrary();
    Lines lists;
    for (int i = 10; i < 30; ++i) {
        const std::string number = std::to_string(i);
        lists.push_back("list-" + number);
        program.writeLines(lists.back(), "/x/brasquelin $exepath$/line.bqs 001=echo " + number + " >> said.txt");
    }
    EXPECT_EQ(runAtOnce(lists), 20U);
    Lines lines = splitLines(program.read("said.txt"));
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(std::unique(lines.begin(), lines.end()) - lines.begin(), 20) << program.read("said.txt");

    const std::string plugin = program.write("ask.exe", "#!/bin/sh\nsleep 0.1\necho \"answer = $1\" > ask.var\n");
    std::filesystem::permissions(plugin, std::filesystem::perms::owner_all);
    lists.clear();
    for (const std::string name : {"a", "b", "c"}) {
        lists.push_back("list-" + name);
        program.writeProfile(name + ".bqp", ":plugin $exepath$/ask.exe [param=" + name + "]",
                             "line\n.text=echo $answer$ > got-" + name);
        program.writeLines(lists.back(), "/x/brasquelin $exepath$/" + name + ".bqp 001=x");
    }
    EXPECT_EQ(runAtOnce(lists), 3U);
    for (const std::string name : {"a", "b", "c"}) EXPECT_EQ(program.read("got-" + name), name + "\n");
}

TEST_F(LinuxExecutable, ABatchReadsTheTerminalAndItsKeysReachTheProgram) {
    startJob("echo $$ > id.txt; read line; echo \"<$line>\" > got.txt\n", true);
    ASSERT_GT(notedProcess(), 0);
    EXPECT_EQ(::write(program.terminal(), "hello\n", 6), 6);
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_EQ(program.read("got.txt"), "<hello>\n");
    std::filesystem::remove(program.path() / "id.txt");
    startJob("sleep 1000 & echo $! > id.txt; read line\n", true);
    const pid_t sleeper = notedProcess();
    EXPECT_EQ(::write(program.terminal(), "\x03", 1), 1);
    EXPECT_EQ(program.waitForEnd(), 128 + SIGINT);
    EXPECT_TRUE(ends(sleeper));
    kill(sleeper, SIGKILL);
}

}  // namespace
}  // namespace brasquelin
