// Time that passes without waiting, and processes that only act.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/childProcess.h"
#include "platform/clock.h"

namespace brasquelin {

class FakeClock : public Clock {
  public:
    std::uint64_t now = 0;
    std::uint64_t tickCount() override { return now; }
    void sleep(std::uint32_t milliseconds) override { now += milliseconds; }
};

class FakeProcessTable : public ProcessTable {
  public:
    std::vector<std::string> commands;
    std::vector<std::pair<std::string, std::function<void()>>> actions;  // for commands that hold the text
    std::vector<std::uint32_t> terminated;
    int polls = 0;  // how often a running process was asked for
    int endsAfterPolls = 0;
    std::function<void()> onTerminate;

    std::uint32_t start(std::string_view command, WindowStyle /*style*/) override {
        commands.emplace_back(command);
        const auto action = std::find_if(actions.rbegin(), actions.rend(), [command](const auto& known) {
            return command.find(known.first) != std::string_view::npos;
        });
        if (action != actions.rend()) action->second();
        return static_cast<std::uint32_t>(commands.size());
    }
    bool isRunning(std::uint32_t /*processId*/) override { return ++polls <= endsAfterPolls; }
    bool terminate(std::uint32_t processId) override {
        terminated.push_back(processId);
        if (onTerminate) onTerminate();
        return true;
    }
};

}  // namespace brasquelin
