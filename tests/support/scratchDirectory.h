// A directory that lives as long as one test; its name holds blanks and a letter outside ASCII.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

using Lines = std::vector<std::string>;

class ScratchDirectory {
  public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// A name in the directory, as UTF-8.
    std::string operator/(std::string_view name) const;
    /// Writes bytes as they are, in a subdirectory if need be. Gives the file's full name.
    std::string write(std::string_view name, std::string_view bytes) const;
    /// Writes lines that are separated by "\n", each ended by CR LF.
    std::string writeLines(std::string_view name, std::string_view lines) const;
    /// The bytes of a file; empty when there is none.
    std::string read(std::string_view name) const;

  private:
    std::filesystem::path path_;
};

std::string utf8(const std::filesystem::path& path);
std::filesystem::path fromUtf8(std::string_view text);

/// The bytes of a file; empty when there is none.
std::string bytesOf(const std::filesystem::path& path);

}  // namespace brasquelin
