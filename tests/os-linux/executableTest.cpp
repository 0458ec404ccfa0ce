// The program itself, as a child process without a display, in a copy of its own directory.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "support/programTest.h"

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

}  // namespace
}  // namespace brasquelin

#endif  // BRASQUELIN_PROGRAM
