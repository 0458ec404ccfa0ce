#include "platform/wire.h"

#include <windows.h>

#include <charconv>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/systemFiles.h"
#include "platform/windows/inheritedHandles.h"
#include "platform/windows/systemError.h"
#include "platform/windows/wideText.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

/// What is to be written, by a thread of its own: a full pipe holds up whoever writes into it.
struct Outbox {
    SystemHandle pipe;
    std::mutex mutex;
    std::condition_variable changed;
    std::string unsent;
    bool idle = true;
    bool over = false;
};

void writeOut(const std::shared_ptr<Outbox>& box) {
    std::unique_lock lock(box->mutex);
    while (true) {
        box->changed.wait(lock, [&] { return box->over || !box->unsent.empty(); });
        if (box->unsent.empty()) return;
        const std::string bytes = std::exchange(box->unsent, {});
        box->idle = false;
        lock.unlock();
        DWORD written = 0;
        const bool gone =
            WriteFile(box->pipe.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0;
        lock.lock();
        box->idle = true;
        box->over = box->over || gone;
        box->changed.notify_all();
    }
}

class PipeWire : public Wire {
  public:
    PipeWire(SystemHandle reading, SystemHandle writing)
        : reading_(std::move(reading)), outbox_(std::make_shared<Outbox>()) {
        outbox_->pipe = std::move(writing);
        std::thread(writeOut, outbox_).detach();
    }
    ~PipeWire() override {
        const std::lock_guard lock(outbox_->mutex);
        outbox_->over = true;
        outbox_->changed.notify_all();
    }
    PipeWire(const PipeWire&) = delete;
    PipeWire& operator=(const PipeWire&) = delete;

    void send(std::string_view bytes) override {
        const std::lock_guard lock(outbox_->mutex);
        if (outbox_->over) return;
        outbox_->unsent.append(bytes);
        outbox_->changed.notify_all();
    }
    std::string receive() override {
        std::string bytes;
        DWORD waiting = 0;
        open_ = open_ && PeekNamedPipe(reading_.get(), nullptr, 0, nullptr, &waiting, nullptr) != 0;
        if (!open_ || waiting == 0) return bytes;
        bytes.resize(waiting);
        DWORD taken = 0;
        ReadFile(reading_.get(), bytes.data(), waiting, &taken, nullptr);
        bytes.resize(taken);
        return bytes;
    }
    bool isOpen() const override { return open_; }
    void letGo() override {
        constexpr int patience = 10000;  // milliseconds
        std::unique_lock lock(outbox_->mutex);
        outbox_->changed.wait_for(lock, std::chrono::milliseconds(patience),
                                  [this] { return outbox_->over || (outbox_->idle && outbox_->unsent.empty()); });
    }

  private:
    SystemHandle reading_;
    std::shared_ptr<Outbox> outbox_;
    bool open_ = true;
};

std::string numberOf(const SystemHandle& handle) {
    return std::to_string(reinterpret_cast<std::uintptr_t>(handle.get()));
}

SystemHandle handleOf(std::string_view number) {
    std::uintptr_t value = 0;
    const auto [next, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error != std::errc() || next != number.data() + number.size()) return nullptr;
    return ownHandle(reinterpret_cast<HANDLE>(value));
}

}  // namespace

std::unique_ptr<Wire> startPartner(std::string_view option) {
    const std::string path = executablePath();
    const std::wstring program = toWide(path);
    PipeEnds reading = makePipe(PipeUse::weRead, path);
    PipeEnds writing = makePipe(PipeUse::weWrite, path);
    InheritedHandles handles({reading.theirs.get(), writing.theirs.get()});
    STARTUPINFOEXW info{};
    info.StartupInfo.cb = sizeof info;
    info.lpAttributeList = handles.list();
    std::wstring commandLine = L'"' + program + L"\" " + toWide(option) + L' ' +
                               toWide(numberOf(writing.theirs) + ',' + numberOf(reading.theirs));
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, EXTENDED_STARTUPINFO_PRESENT,
                       nullptr, nullptr, &info.StartupInfo, &process) == 0) {
        throw RunTimeError(startErrorOf(GetLastError()), path);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return std::make_unique<PipeWire>(std::move(reading.ours), std::move(writing.ours));
}

std::unique_ptr<Wire> joinPartner(std::string_view end) {
    const auto comma = end.find(',');
    if (comma == std::string_view::npos) return nullptr;
    SystemHandle reading = handleOf(end.substr(0, comma));
    SystemHandle writing = handleOf(end.substr(comma + 1));
    if (!reading || !writing) return nullptr;
    return std::make_unique<PipeWire>(std::move(reading), std::move(writing));
}

}  // namespace brasquelin
