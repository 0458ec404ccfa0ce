#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "config/registerFileTypes.h"
#include "platform/paths.h"
#include "support/becomesTrue.h"
#include "support/programTest.h"
#include "text/text.h"

namespace brasquelin {
namespace {

class LinuxFileTypes : public ProgramTest {
  protected:
    LinuxFileTypes() {
        // The tools that update the databases only tell that they were called.
        for (const char* tool : {"bin/update-mime-database", "bin/update-desktop-database"}) {
            writeBytes(tool, "#!/bin/sh\necho \"${0##*/} $1\" >> '" + folder() + "/calls.txt'\n");
            std::filesystem::permissions(folder() + "/" + tool, std::filesystem::perms::owner_all);
        }
        set("PATH", folder() + "/bin:" + std::getenv("PATH"));
        set("XDG_DATA_HOME", folder() + "/data");
    }
    ~LinuxFileTypes() override {
        for (const auto& [name, value] : before_) setenv(name.c_str(), value.c_str(), 1);
    }
    void set(const std::string& name, const std::string& value) {
        const char* before = std::getenv(name.c_str());
        before_.emplace(name, before != nullptr ? before : "");
        setenv(name.c_str(), value.c_str(), 1);
    }
    std::size_t toolCalls(std::size_t expected) const {
        const auto calls = [this] { return splitLines(read("calls.txt")).size(); };
        becomesTrue([&] { return calls() >= expected; });
        return calls();
    }

  private:
    std::map<std::string, std::string> before_;
};

TEST_F(LinuxFileTypes, AreKeptBelowTheUsersData) {
    std::filesystem::create_directory(folder() + "/a $b 5%");
    setProgramDirectory(folder() + "/a $b 5%");
    registerFileTypes();
    EXPECT_EQ(toolCalls(2), 2U);
    const std::string entry = read("data/applications/brasquelin.desktop");
    EXPECT_NE(entry.find("Exec=\"" + folder() + "/a \\\\$b 5%%/brasquelin\" %f\nIcon=" + folder() +
                         "/a $b 5%/brasquelin.svg\n"),
              std::string::npos)
        << entry;
    EXPECT_NE(entry.find("\nMimeType=application/x-brasquelin-script;\n"), std::string::npos);
    const std::string package = read("data/mime/packages/brasquelin.xml");
    EXPECT_NE(package.find("type=\"application/x-brasquelin-script\""), std::string::npos);
    EXPECT_NE(package.find("\"*.bqs\"/>\n    <glob pattern=\"*.bqp\""), std::string::npos);
}

TEST_F(LinuxFileTypes, UpdateTheDatabasesOnlyAfterAChange) {
    registerFileTypes();
    EXPECT_EQ(toolCalls(2), 2U);
    writeBytes("data/applications/brasquelin.desktop", "changed by somebody");
    registerFileTypes();
    EXPECT_EQ(toolCalls(3), 3U);
    EXPECT_EQ(splitLines(read("calls.txt")).back(), "update-desktop-database " + folder() + "/data/applications");
}

TEST_F(LinuxFileTypes, FailSilently) {
    writeBytes("blocked", "a file where a directory is needed");
    set("XDG_DATA_HOME", folder() + "/blocked");
    EXPECT_NO_THROW(registerFileTypes());
    EXPECT_EQ(read("blocked"), "a file where a directory is needed");
}

}  // namespace
}  // namespace brasquelin
