// A test in a program directory of its own (see programWorld.h).
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/programWorld.h"
#include "text/runTimeError.h"
#include "text/table.h"

namespace brasquelin {

class ProgramTest : public testing::Test {
  protected:
    ProgramTest();

    /// The program directory, in its short form.
    const std::string& folder() const { return folder_; }

    /// Files below the program directory. Lines are ended with CR LF.
    void write(const std::string& name, const std::vector<std::string>& lines) const;
    void writeBytes(const std::string& name, const std::string& bytes) const;
    /// The same with "\n" between the lines.
    void writeText(const std::string& name, const std::string& lines) const;
    void writeSayLibrary(const std::string& name) const;
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;
    void remove(const std::string& name) const;

    static void setGlobals(const std::vector<NamedValue>& variables);

    const std::vector<std::string>& jobs() const { return world_.jobs; }
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

  private:
    ProgramWorld world_;
    std::string folder_;

  protected:
    ScriptedDesktop& desktop_ = world_.desktop;
    FakeClock& clock_ = world_.clock;
    FakeProcessTable& processes_ = world_.processes;
};

}  // namespace brasquelin
