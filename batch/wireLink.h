// Messages about a run, over a wire between two processes.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "batch/runMessages.h"
#include "platform/wire.h"

namespace brasquelin {

class WireLink : public RunLink {
  public:
    explicit WireLink(std::unique_ptr<Wire> wire) : wire_(std::move(wire)) {}

    std::vector<RunMessage> receive() override;
    void send(const RunMessage& message) override { wire_->send(encode(message)); }
    bool isOpen() const override { return wire_->isOpen(); }

    /// Several at once.
    void send(const std::vector<RunMessage>& messages);
    /// See Wire.
    void letGo() { wire_->letGo(); }

  private:
    std::unique_ptr<Wire> wire_;
    RunMessageReader reader_;
};

/// Options of the program that only the program itself uses: see startPartner.
inline constexpr std::string_view runWindowOption = "--run-window";
inline constexpr std::string_view runJobsOption = "--run-jobs";

}  // namespace brasquelin
