// One window's dealings with the runners of its jobs: what they tell, and what the user may have them do.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "batch/runMessages.h"
#include "batch/runRows.h"

namespace brasquelin {

/// What can be done now.
struct RunCommands {
    bool stopAfterJob = false;
    bool stopNow = false;
    bool runFailed = false;
    bool runFrom = false;  // any job
    bool goOn = false;     // the jobs that have not ended well, after an end before the last one
};

class RunSession {
  public:
    RunSession(std::unique_ptr<RunLink> link, StartRunner startRunner);

    /// Takes what the runner has told since, so much of it that nobody has to wait. True when something has changed.
    bool poll();

    const RunRows& rows() const { return rows_; }
    RunCommands commands() const;
    /// What the runner has told as trouble in this run, one line each; only the last ones.
    std::string troubles() const;
    /// How often a run has ended.
    std::size_t ends() const { return ends_; }

    void stopAfterJob();
    void stopNow();
    /// Also for runs that begin later.
    void setStopAtFailure(bool stops);

    /// The answers to RunPhase::asking.
    void resume();
    void runFromStart();
    void runNothing();

    /// With a new runner. Raises the error of starting it.
    void runAgain(const std::vector<std::size_t>& jobs);

  private:
    bool hasReceived();
    void take(const RunMessage& message);
    void send(RunMessageKind kind, std::size_t job = 0);

    std::unique_ptr<RunLink> link_;
    StartRunner startRunner_;
    RunRows rows_;
    std::vector<RunMessage> received_;
    std::size_t taken_ = 0;  // of those
    std::deque<std::string> troubles_;
    std::size_t ends_ = 0;
    bool stopsAtFailure_ = false;
    bool stopping_ = false;
};

}  // namespace brasquelin
