// Text files as lines. Files that are read again and again are kept in memory and checked by their stamp.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/codePages.h"

namespace brasquelin {

/// What readers have made of the lines of a file, one object of each type. It lives and dies with the lines, so that an
/// unchanged file is understood once.
class Understood {
  public:
    Understood() = default;
    /// The copy's lines may become others.
    Understood(const Understood&) noexcept {}
    Understood& operator=(const Understood&) = delete;
    ~Understood() = default;

    /// Null when nothing of the type was kept.
    template <typename Meaning>
    std::shared_ptr<const Meaning> get() const {
        for (const auto& [kind, meaning] : kept_) {
            if (kind == &kindOf<Meaning>) return std::static_pointer_cast<const Meaning>(meaning);
        }
        return nullptr;
    }

    /// Takes the place of what was kept of the type.
    template <typename Meaning>
    std::shared_ptr<const Meaning> keep(Meaning meaning) {
        std::erase_if(kept_, [](const Entry& entry) { return entry.first == &kindOf<Meaning>; });
        auto kept = std::make_shared<const Meaning>(std::move(meaning));
        kept_.emplace_back(&kindOf<Meaning>, kept);
        return kept;
    }

  private:
    using Entry = std::pair<const char*, std::shared_ptr<const void>>;

    template <typename Meaning>
    static constexpr char kindOf = 0;  // its address stands for the type

    std::vector<Entry> kept_;
};

struct TextFile {
    std::vector<std::string> lines;  // without their ends
    Encoding encoding = newFileEncoding;
    mutable Understood understood = {};
};

/// The file's lines, decoded (see codePages.h). The same object is returned for as long as the file is unchanged.
/// Raises 53, 70, 75 or 76; 75 with the line for what holds a NUL; 7 for more than mostTextBytes.
std::shared_ptr<const TextFile> readTextFile(std::string_view path);

/// A line by its number from 1; empty where there is none, also because the file cannot be read.
std::string lineOfFile(std::string_view path, int line);

/// Lines that readTextFile gives for a path as long as this lives, whatever stands there: a text that is not saved yet.
class UnsavedText {
  public:
    UnsavedText(std::string path, std::vector<std::string> lines);
    ~UnsavedText();
    UnsavedText(const UnsavedText&) = delete;
    UnsavedText& operator=(const UnsavedText&) = delete;

  private:
    friend std::shared_ptr<const TextFile> unsavedText(std::string_view path);
    std::string path_;
    std::shared_ptr<const TextFile> file_;
};

/// True for a file, and for the path of an unsaved text.
bool textFileExists(std::string_view path);

/// The first line of a file of any size, decoded by itself; empty for an empty file. Raises the same.
std::string readFirstLine(std::string_view path);

/// The error of a line that holds a NUL: it would be shown as the end of the line, and what follows it would be obeyed
/// unseen.
[[noreturn]] void raiseNul(std::string_view path, int line);

/// Drops what is kept in memory: the program has written a file or a child process has run.
void forgetTextFiles();

/// Creates the file anew with these lines, each ended by CR LF, in the encoding of new files. Raises as writeFile.
void writeLines(std::string_view path, const std::vector<std::string>& lines);

/// The same for a file that holds a user's work: as saveFile, and in the encoding in which it was read.
void saveLines(std::string_view path, const std::vector<std::string>& lines, Encoding encoding);

/// The encoding that the file has now; that of new files when there is none.
Encoding encodingOfFile(std::string_view path);

}  // namespace brasquelin
