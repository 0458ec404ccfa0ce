#include "platform/childProcess.h"
#include "platform/paths.h"
#include "support/becomesTrue.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

using Processes = ProgramTest;

TEST_F(Processes, ErrorsOfStartingNameTheProgram) {
    write("broken.exe", {"no program"});
    const std::string none = joinPath(folder(), "none.exe");
    const std::string broken = joinPath(folder(), "broken.exe");
    const std::vector<std::tuple<std::string, ErrorNumber, std::string>> commands{
        {"", ErrorNumber::invalidCall, ""},
        {"\"" + none + "\" a b", ErrorNumber::fileNotFound, none},
        {"\"" + broken + "\" a b", ErrorNumber::permissionDenied, broken}};
    for (const auto& [command, number, path] : commands) {
        try {
            systemProcessTable().start(command, WindowStyle::hidden);
            ADD_FAILURE() << "started: " << command;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), number) << command;
            EXPECT_EQ(error.path(), path) << command;
        }
    }
}

TEST_F(Processes, AreEndedOnceAndOnlyIfTheyAreOurs) {
    std::filesystem::copy_file(BRASQUELIN_HELPER, folder() + "/sleeper.exe");
    auto& table = systemProcessTable();
    const std::uint32_t child = table.start("\"" + folder() + "/sleeper.exe\"", WindowStyle::hidden);
    EXPECT_TRUE(table.isRunning(child));
    EXPECT_TRUE(table.terminate(child));
    EXPECT_TRUE(becomesTrue([&] { return !table.isRunning(child); }));
    EXPECT_FALSE(table.terminate(child));
    EXPECT_FALSE(table.isRunning(1));
    EXPECT_FALSE(table.terminate(1));
}

}  // namespace
}  // namespace brasquelin
