#include "platform/wire.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <utility>

#include "platform/posix/descendants.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/spawn.h"
#include "platform/posix/systemError.h"
#include "platform/systemFiles.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

constexpr int partnerEnd = 3;
class SocketWire : public Wire {
  public:
    explicit SocketWire(int socket) : socket_(socket) { fcntl(socket, F_SETFL, O_NONBLOCK); }

    void send(std::string_view bytes) override {
        unsent_.append(bytes);
        push();
    }
    std::string receive() override {
        push();
        std::array<char, 1U << 12U> piece{};
        const ssize_t taken = open_ ? recv(socket_.get(), piece.data(), piece.size(), 0) : 0;
        if (taken == 0 || (taken < 0 && errno != EAGAIN && errno != EINTR)) open_ = false;
        return {piece.data(), static_cast<std::size_t>(std::max<ssize_t>(taken, 0))};
    }
    bool isOpen() const override { return open_; }
    void letGo() override {
        push();
        if (!open_ || unsent_.empty() || fork() != 0) return;
        setsid();
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(stream);
        flush();
        _exit(0);
    }

  private:
    /// Gives up on a side that takes nothing for so long.
    void flush() {
        constexpr int patience = 10000;  // milliseconds
        pollfd waiting{socket_.get(), POLLOUT, 0};
        while (!unsent_.empty() && poll(&waiting, 1, patience) > 0) push();
    }
    void push() {
        while (open_ && !unsent_.empty()) {
            const std::string_view rest = std::string_view(unsent_).substr(sent_);
            const ssize_t sent = ::send(socket_.get(), rest.data(), rest.size(), MSG_NOSIGNAL);
            if (sent < 0 && errno == EINTR) continue;
            if (sent < 0 && errno != EAGAIN) unsent_.resize(sent_ = 0);
            if (sent <= 0) return;
            sent_ += static_cast<std::size_t>(sent);
            // Not with every piece: much can be waiting behind it.
            if (sent_ < unsent_.size() / 2) continue;
            unsent_.erase(0, std::exchange(sent_, 0));
        }
    }

    Descriptor socket_;
    std::string unsent_;
    std::size_t sent_ = 0;  // of its bytes
    bool open_ = true;
};

pid_t spawnPartner(const std::string& option, int socket) {
    Spawn spawn;
    spawn.inNewSession();
    // Whoever reads what this process prints need not wait for the partner's end.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) spawn.giveNothing(stream);
    spawn.give(socket, partnerEnd);
    return spawn.start({executablePath(), option, std::to_string(partnerEnd)});
}

/// The partner's first byte: it has come up.
constexpr std::string_view sign = "!";

/// False when the partner has ended before it gave the sign.
bool awaitSign(int socket) {
    std::array<char, sign.size()> taken{};
    ssize_t size = 0;
    while ((size = recv(socket, taken.data(), taken.size(), 0)) < 0 && errno == EINTR) continue;
    return size > 0;
}

}  // namespace

std::unique_ptr<Wire> startPartner(std::string_view option) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        raise(errno, FileUse::reading, executablePath());
    }
    Descriptor ours(ends[0]);
    // A descriptor that is its partner's number already would be closed on the way.
    Descriptor theirs(fcntl(ends[1], F_DUPFD_CLOEXEC, partnerEnd + 1));
    close(ends[1]);
    spare(spawnPartner(std::string(option), theirs.get()));
    theirs.reset();
    if (!awaitSign(ours.get())) throw RunTimeError(ErrorNumber::deviceError, executablePath());
    return std::make_unique<SocketWire>(ours.release());
}

std::unique_ptr<Wire> joinPartner(std::string_view end) {
    int socket = -1;
    const auto [next, error] = std::from_chars(end.data(), end.data() + end.size(), socket);
    if (error != std::errc() || next != end.data() + end.size()) return nullptr;
    if (fcntl(socket, F_SETFD, FD_CLOEXEC) != 0) return nullptr;
    auto wire = std::make_unique<SocketWire>(socket);
    wire->send(sign);
    return wire;
}

}  // namespace brasquelin
