#include "platform/appendFile.h"

#include <windows.h>

#include "platform/windows/systemError.h"
#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

[[noreturn]] void raise(const std::string& path) {
    throw RunTimeError(fileErrorOf(GetLastError()), path).ofWriting();
}

class SystemAppendFile : public AppendFile {
  public:
    SystemAppendFile(SystemHandle opened, std::string path) : file_(std::move(opened)), path_(std::move(path)) {}

    void append(std::string_view bytes) override {
        while (!bytes.empty()) {
            DWORD written = 0;
            if (WriteFile(file_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0) {
                raise(path_);
            }
            bytes.remove_prefix(written);
        }
    }
    void sync() noexcept override { FlushFileBuffers(file_.get()); }
    std::uint64_t size() const override {
        LARGE_INTEGER size{};
        return GetFileSizeEx(file_.get(), &size) != 0 ? static_cast<std::uint64_t>(size.QuadPart) : 0;
    }

  private:
    SystemHandle file_;
    std::string path_;
};

}  // namespace

std::unique_ptr<AppendFile> openForAppending(const std::string& path, bool fresh) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    SystemHandle file = ownHandle(CreateFileW(toWide(path).c_str(), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES, sharing,
                                              nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) raise(path);
    if (fresh) {
        const SystemHandle emptied = ownHandle(
            CreateFileW(toWide(path).c_str(), GENERIC_WRITE, sharing, nullptr, TRUNCATE_EXISTING, 0, nullptr));
        if (!emptied) raise(path);
    }
    return std::make_unique<SystemAppendFile>(std::move(file), path);
}

}  // namespace brasquelin
