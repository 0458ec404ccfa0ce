#include "platform/appendFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/descriptor.h"
#include "platform/posix/systemError.h"

namespace brasquelin {

namespace {

class SystemAppendFile : public AppendFile {
  public:
    SystemAppendFile(int opened, std::string path) : file_(opened), path_(std::move(path)) {}

    void append(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = write(file_.get(), bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) raise(errno, FileUse::writing, path_);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void sync() noexcept override { fdatasync(file_.get()); }
    std::uint64_t size() const override {
        struct stat status {};
        return fstat(file_.get(), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
    }

  private:
    Descriptor file_;
    std::string path_;
};

}  // namespace

std::unique_ptr<AppendFile> openForAppending(const std::string& path, bool fresh) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) raise(EISDIR, FileUse::writing, path);
    const int flags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | (fresh ? O_TRUNC : 0);
    const int opened = open(path.c_str(), flags, 0666);
    if (opened < 0) raise(errno, FileUse::writing, path);
    return std::make_unique<SystemAppendFile>(opened, path);
}

}  // namespace brasquelin
