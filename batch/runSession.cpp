#include "batch/runSession.h"

#include <algorithm>
#include <utility>

namespace brasquelin {

RunSession::RunSession(std::unique_ptr<RunLink> link, StartRunner startRunner)
    : link_(std::move(link)), startRunner_(std::move(startRunner)) {}

bool RunSession::poll() {
    constexpr std::size_t mostAtOnce = 20'000;
    // Before receiving: the last words of a runner come before its end.
    const bool open = link_ && link_->isOpen();
    std::size_t count = 0;
    for (; count < mostAtOnce && hasReceived(); ++count) take(received_[taken_++]);
    if (open || taken_ < received_.size() || !link_) return count > 0;
    link_.reset();
    if (rows_.phase() != RunPhase::ended) ++ends_;
    rows_.runnerGone();
    return true;
}

/// More is only received when all has been taken: a runner can be far ahead.
bool RunSession::hasReceived() {
    if (taken_ == received_.size() && link_) {
        received_ = link_->receive();
        taken_ = 0;
    }
    return taken_ < received_.size();
}

void RunSession::take(const RunMessage& message) {
    constexpr std::size_t mostTroubles = 3;
    if (message.kind == RunMessageKind::trouble) {
        if (std::find(troubles_.begin(), troubles_.end(), message.text) != troubles_.end()) return;
        troubles_.push_back(message.text);
        if (troubles_.size() > mostTroubles) troubles_.pop_front();
        return;
    }
    if (message.kind == RunMessageKind::finished && rows_.phase() != RunPhase::ended) ++ends_;
    rows_.take(message);
}

std::string RunSession::troubles() const {
    std::string text;
    for (const auto& trouble : troubles_) text.append(text.empty() ? "" : "\n").append(trouble);
    return text;
}

RunCommands RunSession::commands() const {
    RunCommands may;
    const bool running = rows_.phase() == RunPhase::running;
    const bool over = rows_.phase() == RunPhase::ended || rows_.phase() == RunPhase::lost;
    may.stopAfterJob = running && !stopping_;
    may.stopNow = rows_.isRunning();
    may.runFailed = over && rows_.counts().failed > 0;
    may.runFrom = over && rows_.size() > 0;
    may.goOn =
        over && rows_.counts().done < rows_.size() && (rows_.counts().leftOut > 0 || rows_.phase() == RunPhase::lost);
    return may;
}

void RunSession::stopAfterJob() {
    stopping_ = true;
    send(RunMessageKind::stopAfterJob);
}

void RunSession::stopNow() {
    stopping_ = true;
    send(RunMessageKind::stopNow);
}

void RunSession::setStopAtFailure(bool stops) {
    stopsAtFailure_ = stops;
    send(RunMessageKind::stopAtFailure, stops ? 1 : 0);
}

void RunSession::resume() {
    if (rows_.phase() == RunPhase::asking && link_) link_->send(rows_.runJobs(rows_.openJobs()));
}

void RunSession::runFromStart() {
    if (rows_.phase() == RunPhase::asking && link_) link_->send(rows_.runJobs(rows_.jobsFrom(1)));
}

void RunSession::runNothing() {
    stopNow();
}

void RunSession::runAgain(const std::vector<std::size_t>& jobs) {
    auto link = startRunner_();
    rows_.tellAboutRun([&link](const RunMessage& message) { link->send(message); });
    link->send(rows_.runJobs(jobs));
    link_ = std::move(link);
    received_.clear();
    taken_ = 0;
    troubles_.clear();
    stopping_ = false;
    if (stopsAtFailure_) setStopAtFailure(true);
}

void RunSession::send(RunMessageKind kind, std::size_t job) {
    if (link_) link_->send({kind, job});
}

}  // namespace brasquelin
