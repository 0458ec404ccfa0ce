// Tells when another program has opened a file.
#pragma once

#include <memory>
#include <string_view>

namespace brasquelin {

class FileOpenWatch {
  public:
    /// Watches from now on.
    explicit FileOpenWatch(std::string_view path);
    ~FileOpenWatch();
    FileOpenWatch(const FileOpenWatch&) = delete;
    FileOpenWatch& operator=(const FileOpenWatch&) = delete;

    /// False where the system cannot tell, or where whoever runs a file opens it again and again.
    bool canTell() const;
    bool wasOpened();

  private:
    struct System;
    std::unique_ptr<System> system_;  // null where nothing is watched
    bool opened_ = false;
};

}  // namespace brasquelin
