#include "platform/systemWriting.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/files.h"
#include "platform/temporaryName.h"
#include "platform/windows/systemError.h"
#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"

namespace brasquelin {

namespace {

using Path = std::filesystem::path;

int lastError() {
    return static_cast<int>(GetLastError());
}

bool writeAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t step = 1U << 20U;
    while (!bytes.empty()) {
        DWORD written = 0;
        if (WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(step, bytes.size())), &written, nullptr) == 0) {
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

/// The console, a printer port, a pipe: nothing that another file could be moved over.
bool isDevice(const std::wstring& path) {
    const bool pipe = path.starts_with(L"\\\\.\\");
    wchar_t full[MAX_PATH] = L"";
    const DWORD length = pipe ? 0 : GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr);
    // The system turns the name of a device into a path of its own kind.
    return pipe || (length > 0 && length < MAX_PATH && std::wstring_view(full).starts_with(L"\\\\.\\"));
}

/// Where a link leads; the link itself stays.
std::wstring behindLinks(std::string_view path) {
    std::wstring wide = toWide(path);
    if (!isLink(path)) return wide;
    const SystemHandle file =
        ownHandle(CreateFileW(wide.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file) return wide;
    std::wstring target(GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0), L'\0');
    const DWORD length = GetFinalPathNameByHandleW(file.get(), target.data(), static_cast<DWORD>(target.size()), 0);
    if (length == 0 || length >= target.size()) return wide;
    target.resize(length);
    return target;
}

/// Nobody else can open the file while it is open here, nor remove it.
class WindowsTemporary : public TemporaryFile {
  public:
    WindowsTemporary(const Path& directory, const Path& name) {
        constexpr std::size_t mostAtOnce = 100;
        constexpr std::size_t longestName = 255;
        error_ = ERROR_FILE_EXISTS;
        for (std::size_t number = 0; number < mostAtOnce && error_ == ERROR_FILE_EXISTS; ++number) {
            path_ = directory / temporaryName(name.native(), number, longestName);
            create();
            if (error_ == ERROR_FILE_EXISTS && DeleteFileW(path_.c_str()) != 0) create();  // a leftover
        }
    }
    ~WindowsTemporary() override {
        if (!file_) return;
        file_.reset();
        if (!kept_) DeleteFileW(path_.c_str());
    }
    WindowsTemporary(const WindowsTemporary&) = delete;
    WindowsTemporary& operator=(const WindowsTemporary&) = delete;

    int error() const override { return error_; }
    const Path& path() const override { return path_; }
    void setKept(bool kept) override { kept_ = kept; }
    void becomeLike(const Path& /*target*/) override {}

    void fill(std::string_view bytes, Durability durability) override {
        if (error_ != 0) return;
        failUnless(writeAll(file_.get(), bytes));
        if (error_ == 0 && durability == Durability::onDisk) failUnless(FlushFileBuffers(file_.get()) != 0);
    }

    /// By its handle, so that it is nobody else's for a moment.
    void moveOver(const Path& target, Durability /*durability*/) override {
        if (error_ != 0) return;
        const std::wstring& name = target.native();
        std::vector<std::byte> request(sizeof(FILE_RENAME_INFO) + name.size() * sizeof(wchar_t));
        auto* const rename = reinterpret_cast<FILE_RENAME_INFO*>(request.data());
        rename->ReplaceIfExists = TRUE;
        rename->FileNameLength = static_cast<DWORD>(name.size() * sizeof(wchar_t));
        std::memcpy(rename->FileName, name.c_str(), rename->FileNameLength);
        const auto size = static_cast<DWORD>(request.size());
        failUnless(SetFileInformationByHandle(file_.get(), FileRenameInfo, rename, size) != 0);
        kept_ = error_ == 0;
    }

  private:
    void create() {
        file_ = ownHandle(
            CreateFileW(path_.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        error_ = file_ ? 0 : lastError();
    }
    void failUnless(bool done) {
        if (!done) error_ = lastError();
    }

    SystemHandle file_;
    Path path_;
    int error_ = 0;
    bool kept_ = false;
};

bool setSize(HANDLE file, std::size_t size) {
    LARGE_INTEGER end{};
    end.QuadPart = static_cast<LONGLONG>(size);
    return SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != 0 && SetEndOfFile(file) != 0 &&
           SetFilePointerEx(file, {}, nullptr, FILE_BEGIN) != 0;
}

}  // namespace

WriteTarget writeTargetOf(std::string_view path) {
    WriteTarget target{.path = behindLinks(path)};
    if (isDevice(target.path.native())) target.error = ERROR_BAD_UNIT;
    const SystemHandle file = ownHandle(CreateFileW(target.path.c_str(), FILE_READ_ATTRIBUTES,
                                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                                    OPEN_EXISTING, 0, nullptr));
    BY_HANDLE_FILE_INFORMATION info{};
    if (target.error != 0 || !file || GetFileInformationByHandle(file.get(), &info) == 0) return target;
    target.exists = true;
    target.hasOtherNames = info.nNumberOfLinks > 1;
    if ((info.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) target.error = ERROR_ACCESS_DENIED;
    return target;
}

std::unique_ptr<TemporaryFile> openTemporary(const Path& directory, const Path& name) {
    return std::make_unique<WindowsTemporary>(directory, name);
}

bool isRefusalToReplace(int error) {
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION || error == ERROR_NOT_SAME_DEVICE ||
           error == ERROR_FILENAME_EXCED_RANGE || error == ERROR_TOO_MANY_LINKS;
}

int overwriteFile(const Path& target, std::string_view bytes, Durability durability) {
    const SystemHandle file =
        ownHandle(CreateFileW(target.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) return lastError();
    LARGE_INTEGER before{};
    GetFileSizeEx(file.get(), &before);
    const bool grows = bytes.size() > static_cast<std::uint64_t>(before.QuadPart);
    if (grows && !setSize(file.get(), bytes.size())) return lastError();
    if (!writeAll(file.get(), bytes) || SetEndOfFile(file.get()) == 0) return lastError();
    if (durability == Durability::onDisk && FlushFileBuffers(file.get()) == 0) return lastError();
    return 0;
}

RunTimeError errorOfWriting(int error, std::string_view path) {
    ErrorNumber number = fileErrorOf(static_cast<DWORD>(error));
    if (number == ErrorNumber::fileNotFound || directoryExists(path)) number = ErrorNumber::pathFileAccess;
    return RunTimeError(number, std::string(path)).ofWriting();
}

}  // namespace brasquelin
