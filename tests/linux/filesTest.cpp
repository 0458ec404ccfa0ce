#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "config/clearDirectory.h"
#include "platform/appendFile.h"
#include "platform/keptFiles.h"
#include "platform/listFile.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

class LinuxFiles : public ProgramTest {
  protected:
    void link(const std::string& target, const std::string& name) const {
        ASSERT_EQ(symlink(target.c_str(), (folder() + "/" + name).c_str()), 0);
    }
};

TEST_F(LinuxFiles, PathsAreFoundInAnyLetterCaseAndWithEitherSeparator) {
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

TEST_F(LinuxFiles, ReplacingKeepsPermissionsAndLinksOfAnyLetterCase) {
    write("real.txt", {"x"});
    chmod((folder() + "/real.txt").c_str(), 0640);
    link("real.txt", "Link.txt");
    write("LINK.TXT", {"another file"});
    saveFile(folder() + "/Link.txt", "new");
    EXPECT_TRUE(isLink(folder() + "/Link.txt"));
    EXPECT_EQ(read("real.txt"), "new");
    struct stat status {};
    stat((folder() + "/real.txt").c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(LinuxFiles, PipesAndDevicesAreNoTextsAndAreNotWaitedFor) {
    const std::string pipe = folder() + "/pipe.bqp";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, std::string("/dev/zero")}) {
        for (const std::function<void()>& use : std::initializer_list<std::function<void()>>{
                 [&] { readTextFile(path); }, [&] { readFilePart(path, 0, 1); }, [&] { ListFile list(path); },
                 [&] { readFirstLine(path); }, [&] { writeFile(path, "x"); }, [&] { saveFile(path, "x"); },
                 [&] { openForAppending(path, false); }}) {
            try {
                use();
                ADD_FAILURE() << path;
            } catch (const RunTimeError& error) {
                EXPECT_EQ(error.number(), ErrorNumber::pathFileAccess);
                EXPECT_EQ(error.path(), path);
            }
        }
    }
}

/// In a process of its own: 0, or the number of the error that it raised.
int inOtherProcess(const std::function<void()>& step) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            step();
        } catch (const RunTimeError& error) {
            _exit(static_cast<int>(error.number()));
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The same as a user who owns nothing.
int asNobody(const std::function<void()>& step) {
    return inOtherProcess([&] {
        constexpr uid_t nobody = 65534;
        if (setgid(nobody) != 0 || setuid(nobody) != 0) _exit(99);
        step();
    });
}

/// The error of a write while files may not grow beyond 64 bytes.
ErrorNumber errorOfSmallDisk(const std::function<ErrorNumber()>& write) {
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{64, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const ErrorNumber error = write();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    return error;
}

TEST_F(LinuxFiles, AWriteThatFailsLeavesTheOldFileAlone) {
    write("kept.txt", {"old"});
    for (const bool linked : {false, true}) {
        const std::string path = folder() + "/kept.txt";
        if (linked) std::filesystem::create_hard_link(path, folder() + "/linked");
        EXPECT_EQ(errorOfSmallDisk([&] { return errorOf([&] { saveFile(path, std::string(1000, 'x')); }); }),
                  ErrorNumber::pathFileAccess);
        EXPECT_EQ(read("kept.txt"), "old\r\n");
        EXPECT_EQ(listFiles(folder()), linked ? (Lines{"kept.txt", "linked"}) : Lines{"kept.txt"});
    }
}

TEST_F(LinuxFiles, AWritableFileIsWrittenWhereNothingCanBeMovedOverIt) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can become another user";
    write("theirs/open.ini", {"old"});
    write("theirs/closed.ini", {"old"});
    chmod((folder() + "/theirs/open.ini").c_str(), 0666);
    const auto save = [&](const char* name) {
        return asNobody([&] { saveFile(folder() + "/theirs/" + name, "new text\r\n"); });
    };
    EXPECT_EQ(save("open.ini"), 0);
    EXPECT_EQ(read("theirs/open.ini"), "new text\r\n");
    EXPECT_EQ(save("closed.ini"), static_cast<int>(ErrorNumber::permissionDenied));
    EXPECT_EQ(save("new.ini"), static_cast<int>(ErrorNumber::permissionDenied));
    write("theirs/open.ini", {"old"});
    chmod((folder() + "/theirs").c_str(), 01777);  // they may add files, but not replace those of others
    EXPECT_EQ(save("open.ini"), 0);
    EXPECT_EQ(read("theirs/open.ini"), "new text\r\n");
    EXPECT_EQ(listFiles(folder() + "/theirs"), (Lines{"closed.ini", "open.ini"}));
}

TEST_F(LinuxFiles, WhatAKilledSaveLeftIsReplacedByTheNext) {
    const std::string path = folder() + "/x.ini";
    const std::string large(4 << 20, 'x');
    std::size_t most = 0;
    for (unsigned round = 1; round <= 10 || (most < 2 && round < 100); ++round) {
        const pid_t child = fork();
        for (int i = 0; child == 0 && i < 10000; ++i) writeFile(path, large);
        if (child == 0) _exit(0);
        usleep(2000 * (1 + round % 10));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        most = std::max(most, listFiles(folder()).size());
        EXPECT_TRUE(!fileExists(path) || readFileBytes(path) == large);
    }
    EXPECT_EQ(most, 2U);
    saveFile(path, "new");
    EXPECT_EQ(listFiles(folder()), Lines{"x.ini"});
}

TEST_F(LinuxFiles, TwoProgramsThatSaveAtOnceDoNotMixTheirTexts) {
    const std::string path = folder() + "/x.ini";
    std::vector<pid_t> children;
    for (const char letter : {'a', 'b', 'c'}) {
        children.push_back(fork());
        if (children.back() != 0) continue;
        for (int i = 0; i < 300; ++i) writeFile(path, std::string(100000, letter));
        _exit(0);
    }
    std::size_t running = children.size();
    int looks = 0;
    while (running > 0) {
        int status = 0;
        if (waitpid(-1, &status, WNOHANG) > 0) {
            --running;
            EXPECT_EQ(status, 0);
        }
        if (!fileExists(path)) continue;
        const std::string text = readFileBytes(path);
        ASSERT_EQ(text, std::string(100000, text.front()));
        ++looks;
    }
    EXPECT_GT(looks, 10);
    EXPECT_EQ(listFiles(folder()), Lines{"x.ini"});
}

TEST_F(LinuxFiles, TheCommandLineIsDecodedLikeAListAndTheHomeIsKept) {
    const char* arguments[] = {"brasquelin", " x.bqp", "001=caf\x82"};
    EXPECT_EQ(processCommandLine(3, arguments), "x.bqp 001=café");
    EXPECT_EQ(processArguments(3, arguments), (Lines{" x.bqp", "001=café"}));
    write("home/me/x", {});
    const std::string before = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
    setenv("HOME", (folder() + "/home/me").c_str(), 1);
    for (const char* kept : {"home/me", "home"}) clearDirectory(kept);
    setenv("HOME", before.c_str(), 1);
    EXPECT_TRUE(exists("home/me/x"));
}

TEST_F(LinuxFiles, OnlyTheDirectoryThatIsNamedExactlyIsCleared) {
    write("real/prog/keep.txt", {});
    write("real/keep.txt", {});
    write("tmp/a.txt", {});
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

TEST_F(LinuxFiles, NeitherOtherNamesNorOddOnesLeadClearingElsewhere) {
    write("keep.txt", {"x"});
    write("tmp/sub/inner/x", {});  // too deep to go
    write("tmp/sub\\..\\..\\keep.txt", {"x"});
    write("tmp/gone.txt", {"x"});
    clearDirectory(folder() + "/tmp");
    EXPECT_TRUE(exists("keep.txt"));
    EXPECT_FALSE(exists("tmp/gone.txt"));
    write("real/program/keep.txt", {"x"});
    link("real", "other");
    link("../../real/program", "real/program/inside");
    setProgramDirectory(folder() + "/real/program");
    clearDirectory(folder() + "/other/program");
    clearDirectory(folder() + "/other/");
    clearDirectory(folder() + "/real/program/inside/..");
    EXPECT_TRUE(exists("real/program/keep.txt"));
}

TEST_F(LinuxFiles, NamesKeepTheirBytesAndLinksAreFiles) {
    const std::string directory = folder() + "/caf\xE9 \xFF";
    ASSERT_EQ(mkdir(directory.c_str(), 0755), 0);
    ASSERT_EQ(symlink(folder().c_str(), (directory + "/\xFE").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (directory + "/lost").c_str()), 0);
    writeFile(directory + "/.hidden", "");
    EXPECT_EQ(listDirectories(folder()), std::vector<std::string>{"caf\xE9 \xFF"});
    EXPECT_EQ(listFiles(directory), (std::vector<std::string>{"lost", "\xFE"}));
    EXPECT_TRUE(listDirectories(directory).empty());
    EXPECT_FALSE(fileExists(directory + "/lost"));
    EXPECT_FALSE(removeDirectory(directory + "/\xFE"));
    for (const char* name : {"/lost", "/\xFE", "/.hidden"}) EXPECT_TRUE(deleteFile(directory + name)) << name;
    EXPECT_NO_THROW(changeDirectory(directory));
    EXPECT_TRUE(removeDirectory(directory));
    EXPECT_TRUE(listFiles(directory).empty());
}

TEST_F(LinuxFiles, WhatAnotherRunningProgramKeepsIsItsOwn) {
    int told[2];
    ASSERT_EQ(pipe(told), 0);
    const pid_t other = fork();
    if (other == 0) {
        const std::string file = unusedKeptFile("list");
        writeFile(file, "kept");
        _exit(::write(told[1], "x", 1) == 1 && pause() == 0 ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(::read(told[0], &byte, 1), 1);
    EXPECT_TRUE(keptFilesBut("list", {}).empty());
    EXPECT_EQ(unusedKeptFile("list"), folder() + "/list-2.kept");
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);
    EXPECT_EQ(keptFilesBut("list", {}), std::vector<std::string>{folder() + "/list.kept"});
    close(told[0]);
    close(told[1]);
}

}  // namespace
}  // namespace brasquelin
