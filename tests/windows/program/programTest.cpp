#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdlib>

#include "platform/codePages.h"
#include "platform/paths.h"
#include "text/text.h"
#include "windows/becomesTrue.h"
#include "windows/program/programRun.h"

namespace brasquelin {
namespace {

/// A body whose batch line makes a file named after the value of "x".
constexpr const char* makeFileX = "line\n.text=echo made>\"$exepath$\\$x$.txt\"";

void expectRegistered(const std::string& shortDirectory) {
    EXPECT_EQ(classValue(L".bqs"), "Brasquelin.Script");
    EXPECT_EQ(classValue(L".bqp"), "Brasquelin.Script");
    EXPECT_EQ(classValue(L"Brasquelin.Script\\shell\\open\\command"), shortDirectory + "\\Brasquelin.exe %1");
}

void deleteRegistration() {
    RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Brasquelin.Script");
    RegDeleteKeyW(HKEY_CLASSES_ROOT, L".bqs");
    RegDeleteKeyW(HKEY_CLASSES_ROOT, L".bqp");
}

TEST(Program, registersItsFileTypesAtEveryStart) {
    deleteRegistration();
    ProgramRun program;
    program.writeLines("empty.txt", "");
    for (int start = 0; start < 2; ++start) {
        ASSERT_TRUE(program.run("-f " + program / "empty.txt"));
        expectRegistered(program.shortDirectory());
    }
}

TEST(Program, answersOptionsOnTheStreamsItIsGiven) {
    ProgramRun program;
    const auto answer = [&](const std::string& redirected) {
        const std::string out = program / "out.txt";
        std::filesystem::remove(fromUtf8(out));
        const std::string directory = program.shortDirectory();
        std::system((directory + "\\Brasquelin.exe " + redirected + ' ' + directory + "\\out.txt").c_str());
        becomesTrue([&] { return program.read("out.txt").ends_with('\n'); });
        return program.read("out.txt");
    };
    EXPECT_EQ(answer("--version >").find("Brasquelin "), 0U);
    EXPECT_EQ(answer("--nonsense 2>"), "brasquelin: unknown option '--nonsense'; --help lists what there is\r\n");
}

TEST(Program, runsAFileWithItsPresetsAndEnds) {
    ProgramRun program;
    const std::string profile = program.writeProfile("my profile.bqp", "", makeFileX);
    ASSERT_TRUE(program.run(profile + " 001=caf\u00E9 au lait"));
    EXPECT_EQ(program.exitCode(), 0U);
    EXPECT_EQ(program.read("brasquelin.bat"),
              "echo made>\"" + encodeOem(program.shortDirectory()) + "\\caf\x82 au lait.txt\"\r\n");
    EXPECT_EQ(program.read("caf\u00E9 au lait.txt"), "made\r\n");
}

TEST(Program, thePathOfItsDirectoryIsShort) {
    ProgramRun program;
    const std::string profile = program.writeProfile("p.bqp", "", "line\n.text=rem $exepath$");
    ASSERT_TRUE(program.run(profile + " 001=x"));
    const std::string batch = decodeOem(program.read("brasquelin.bat"));
    const std::string path = batch.substr(4, batch.size() - 6);
    EXPECT_EQ(path.find(' '), std::string::npos) << path;
    EXPECT_TRUE(std::filesystem::equivalent(fromUtf8(path), program.path())) << path;
}

TEST(Program, replaysAListInTheOemCodePage) {
    ProgramRun program;
    program.writeProfile("\u00E9t\u00E9.bqp", "", makeFileX);
    const std::string line = "C:\\any where\\Brasquelin.EXE $exepath$\\\u00E9t\u00E9.bqp 001=";
    program.write("a list.txt", encodeOem(line + "one \u00FC\r\n\r\n" + line + "two"));
    ASSERT_TRUE(program.run("-f " + program / "a list.txt"));
    EXPECT_EQ(program.exitCode(), 0U);
    EXPECT_EQ(program.read("one \u00FC.txt"), "made\r\n");
    EXPECT_EQ(program.read("two.txt"), "made\r\n");
}

TEST(Program, opensThroughTheRegisteredCommand) {
    ProgramRun program;
    program.writeLines("empty.txt", "");
    ASSERT_TRUE(program.run("-f " + program / "empty.txt"));
    program.writeLines("opened.bqp",
                       "#Brasquelin Profile No variables\n[library]\n:include $exepath$\\plain.bqs\n"
                       "[/library]\n[profile]\nplain\n[/profile]");
    program.writeLines("plain.bqs",
                       "#Brasquelin Library  plain\n[command]\ntype=shell\n"
                       "command=echo opened>\"$exepath$\\out.txt\"\n[/command]");
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, nullptr, L"cmd.exe", L"/c start opened.bqp", program.path().c_str(), SW_HIDE));
    EXPECT_GT(result, 32);
    EXPECT_TRUE(becomesTrue([&] { return program.read("out.txt") == "opened\r\n"; }));
    // The program ends by itself once the batch file has run.
    EXPECT_TRUE(becomesTrue([&] {
        std::error_code inUse;
        std::filesystem::remove(program.path() / L"Brasquelin.exe", inUse);
        return !inUse;
    }));
}

TEST(Program, takesValuesFromAPlugin) {
    ProgramRun program;
    program.copyHelper(L"answer.exe");
    const std::string profile = program.writeProfile("p.bqp", ":plugin $exepath$\\answer.exe [Param=\"one two\" three]",
                                                     "line\n.text=rem $count$ $first$ $x$");
    ASSERT_TRUE(program.run(profile + " 001=y"));
    EXPECT_EQ(program.read("brasquelin.bat"), "rem 2 one two y\r\n");
    EXPECT_FALSE(std::filesystem::exists(program.path() / L"answer.var"));
}

TEST(Program, aCheckMayStopEverything) {
    ProgramRun program;
    program.copyHelper(L"veto.exe");
    for (const std::string answer : {"true", "false"}) {
        program.writeLines("brasquelin.bat", "rem untouched");
        const std::string profile =
            program.writeProfile("p.bqp", ":check $exepath$\\veto.exe [param=" + answer + "]", "line\n.text=rem run");
        ASSERT_TRUE(program.run(profile + " 001=y"));
        EXPECT_EQ(program.read("brasquelin.bat"), answer == "true" ? "rem run\r\n" : "rem untouched\r\n");
    }
}

TEST(Program, endsItsChildWithItsMainWindow) {
    ProgramRun program;
    program.copyHelper(L"sleeper.exe");
    program.writeLines("Brasquelin.ini", "[config]\nshellexec = $exepath$\\sleeper.exe\n[/config]");
    program.start(program.writeProfile("p.bqp", "", "line\n.text=rem"));
    const HWND prompt = program.awaitWindow(L"Test");
    ASSERT_TRUE(clickButton(prompt, L"OK"));
    ASSERT_TRUE(becomesTrue([&] { return !program.read("sleeper.var").empty(); }));
    const auto child = static_cast<DWORD>(std::stoul(program.read("sleeper.var")));
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, child);
    ASSERT_NE(process, nullptr);
    PostMessageW(program.awaitWindow(L"Brasquelin"), WM_CLOSE, 0, 0);
    EXPECT_TRUE(program.waitForEnd());
    EXPECT_EQ(WaitForSingleObject(process, 5000), static_cast<DWORD>(WAIT_OBJECT_0));
    CloseHandle(process);
}

TEST(Program, endsItsChildWhenItIsEndedByForce) {
    ProgramRun program;
    program.copyHelper(L"sleeper.exe");
    program.writeLines("Brasquelin.ini", "[config]\nshellexec = $exepath$\\sleeper.exe\n[/config]");
    program.writeLines("list.txt", "");
    program.start("-f " + program.shortDirectory() + "\\list.txt");
    ASSERT_TRUE(becomesTrue([&] { return !program.read("sleeper.var").empty(); }));
    const auto child = static_cast<DWORD>(std::stoul(program.read("sleeper.var")));
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, child);
    ASSERT_NE(process, nullptr);
    program.endByForce();
    EXPECT_EQ(WaitForSingleObject(process, 5000), static_cast<DWORD>(WAIT_OBJECT_0));
    CloseHandle(process);
}

TEST(Program, tellsAboutAListThatIsMissingAndStaysOpen) {
    ProgramRun program;
    program.start("-f C:\\missing list.txt");
    const HWND box = program.awaitWindow(L"Brasquelin Error");
    const std::string texts = textsOf(box);
    EXPECT_NE(texts.find("Error 53 : File not found"), std::string::npos) << texts;
    EXPECT_NE(texts.find("While loading 'C:\\missing list.txt'"), std::string::npos) << texts;
    PostMessageW(box, WM_CLOSE, 0, 0);
    PostMessageW(program.awaitWindow(L"Brasquelin"), WM_CLOSE, 0, 0);
    EXPECT_TRUE(program.waitForEnd());
}

}  // namespace
}  // namespace brasquelin
