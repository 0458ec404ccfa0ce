// A throw-away program directory with every table reset, a scripted desktop, and no real time or processes.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "support/fakeProcesses.h"
#include "support/scratchDirectory.h"
#include "support/scriptedDesktop.h"
#include "text/runTimeError.h"
#include "text/table.h"

namespace brasquelin {

class ProgramTest : public testing::Test {
  protected:
    ProgramTest();
    ~ProgramTest() override;
    ProgramTest(const ProgramTest&) = delete;
    ProgramTest& operator=(const ProgramTest&) = delete;

    /// The program directory, in its short form.
    const std::string& folder() const { return folder_; }

    /// Files below the program directory. Lines are ended with CR LF.
    void write(const std::string& name, const std::vector<std::string>& lines) const;
    void writeBytes(const std::string& name, const std::string& bytes) const;
    /// The same with "\n" between the lines.
    void writeText(const std::string& name, const std::string& lines) const;
    /// The library "Say" with a text variable "text", whose job is "echo $text$".
    void writeSayLibrary(const std::string& name) const;
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;
    void remove(const std::string& name) const;

    static void setGlobals(const std::vector<NamedValue>& variables);

    const std::vector<std::string>& jobs() const { return jobs_; }
    const std::vector<std::string>& messages() const { return desktop_.messages; }
    const std::vector<std::string>& windowCalls() const { return desktop_.windowCalls; }
    const std::vector<std::string>& commands() const { return processes_.commands; }

    void onCommand(const std::string& part, std::function<void()> action) {
        processes_.actions.emplace_back(part, std::move(action));
    }
    void answerText(const std::string& answer) { desktop_.texts.push_back(answer); }
    void answerFile(const std::string& answer) { desktop_.files.push_back(answer); }

    /// The run-time error that the action raises; a failure when there is none.
    static ErrorNumber errorOf(const std::function<void()>& action);
    /// The status with which the action ends the program, -1 when it does not.
    static int exitStatusOf(const std::function<void()>& action);

    ScriptedDesktop desktop_;
    FakeClock clock_;
    FakeProcessTable processes_;

  private:
    ScratchDirectory directory_;
    std::filesystem::path startedIn_;
    std::string folder_;
    std::vector<std::string> jobs_;
};

}  // namespace brasquelin
