// Two processes of this program that talk to each other.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace brasquelin {

/// One end. Neither sending nor receiving waits for the other side.
class Wire {
  public:
    virtual ~Wire() = default;
    /// Lost when the other side is gone.
    virtual void send(std::string_view bytes) = 0;
    /// What has come since the last call, a limited part of it at a time.
    virtual std::string receive() = 0;
    /// False when the other side is gone and all that it sent has been received.
    virtual bool isOpen() const = 0;
    /// The last call: what is not sent yet still reaches the other side when this process ends now (Linux: without
    /// waiting for it).
    virtual void letGo() = 0;
};

/// Starts this program again, with "OPTION END" as its command line, and gives this side's end. The other process
/// outlives this one, and what ends this one by the terminal leaves it alone. Raises the error of starting, also when
/// the partner ends before it joins.
std::unique_ptr<Wire> startPartner(std::string_view option);

/// The end that the command line of a partner names. Null when there is none of that name.
std::unique_ptr<Wire> joinPartner(std::string_view end);

}  // namespace brasquelin
