#include <sys/wait.h>

#include <cstdio>

#include "app/jobFiles.h"
#include "app/jobList.h"
#include "app/startUp.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

/// What a command prints, and its exit status. How a shell tells mistakes is its own.
std::pair<std::string, int> outcomeOf(const std::string& command) {
    FILE* output = popen((command + " 2>/dev/null <<'EOF'\nfrom outside\nEOF\n").c_str(), "r");
    std::string text;
    for (int byte = fgetc(output); byte != EOF; byte = fgetc(output)) text += static_cast<char>(byte);
    return {text, WEXITSTATUS(pclose(output))};
}

using JobScript = ProgramTest;

TEST_F(JobScript, DoesWhatTheRunnerDoesWithTheSameJobs) {
    const std::vector<std::vector<std::string>> lists{
        {"cd /", "pwd", "x='two  words'; echo \"$x\"", "// echo no job", "", "echo back\\slash \"'\" `echo tick`",
         "false"},
        {"read -r line; echo \"$line\"", "echo a\rb", "echo 'open", "echo \xC3\xA9", "exit 7"},
        {"cat <<X", "if true", "echo BRASQUELIN_JOBS", "BRASQUELIN_JOBS 2>/dev/null", "set -e; false"},
    };
    const std::string runner =
        "sh '" BRASQUELIN_SOURCE "/launchers/linux/brasquelin-batch' '" + folder() + "/jobs.bat'";
    for (const auto& lines : lists) {
        resetTables();
        for (const auto& line : lines) jobList.append(line);
        for (const char* name : {"/jobs.bat", "/jobs.sh"}) writeJobFile(folder() + name);
        const auto [expected, status] = outcomeOf(runner);
        const auto [text, ownStatus] = outcomeOf("'" + folder() + "/jobs.sh'");
        EXPECT_EQ(status, ownStatus);
        EXPECT_EQ(expected, text);
        EXPECT_NE("", text);
    }
}

}  // namespace
}  // namespace brasquelin
