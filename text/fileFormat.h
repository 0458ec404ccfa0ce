// How the program's files are written: kinds, headers, sections, and the words of their lines. Whoever reads or writes
// a profile, library, basic function or the configuration takes them from here.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brasquelin {

// Kinds of files

enum class FileKind { profile, library, program, other };

/// Told by the last three characters, in any letter case: "bqp", "bqs", "exe".
FileKind kindOfFile(std::string_view path);

/// True when the name ends in the kind's extension with its dot.
bool hasExtension(std::string_view fileName, FileKind kind);

inline constexpr std::string_view profileHeader = "#Brasquelin Profile ";

/// The number of characters in front of the title in line 1. Readers go by it; the header is not compared.
std::size_t headerLength(FileKind kind);

/// What follows the header in line 1: the name under which a profile or library is called. Empty for other kinds.
std::string_view titleIn(std::string_view firstLine, FileKind kind);

// Sections

enum class Section { config, library, var, profile, command };
enum class LetterCase { any, exact };

/// "[var]" and "[/var]"
std::string_view openingTag(Section section);
std::string_view closingTag(Section section);

/// Follows a section while the lines of a file are read in their order. A tag is a whole line; a section that is not
/// closed runs to the end of the file.
class SectionState {
  public:
    explicit SectionState(Section section, LetterCase letterCase = LetterCase::any)
        : section_(section), letterCase_(letterCase) {}

    bool isOpen() const { return open_; }
    /// Notes a line that is one of the section's tags. False for any other line.
    bool noteTag(std::string_view line);

  private:
    bool isTag(std::string_view line, std::string_view tag) const;

    Section section_;
    LetterCase letterCase_;
    bool open_ = false;
};

// Lines of "[library]"

enum class LibraryWord { include, plugin, check };

struct LibraryLine {
    LibraryWord word = LibraryWord::include;
    std::string path;        // tokens not replaced
    std::string parameters;  // of a plugin or check, without "[param=" and the bracket
    bool spaced = true;      // a blank follows the word
};

/// ":include path", ":plugin path [param=parameters]" or ":check ...", the words in any letter case; nothing for any
/// other line. The path is taken by its position: whatever character follows the word is dropped.
std::optional<LibraryLine> parseLibraryLine(std::string_view line);

/// The line as the editor writes it. Empty parameters are left out.
std::string writeLibraryLine(const LibraryLine& line);

// Lines of "[var]"

inline constexpr std::string_view typeKey = ".Type=";
inline constexpr std::string_view infoKey = ".Info=";
inline constexpr std::string_view defaultKey = ".Default=";
/// Between the items of a list or comb, and between the lines that a "file" function writes.
inline constexpr std::string_view itemSeparator = "||";

// Lines of "[profile]"

inline constexpr std::string_view forWord = "For";
inline constexpr std::string_view nextWord = "Next";
inline constexpr std::string_view functionPrefix = "BasicFunction.";
inline constexpr std::string_view pluginPrefix = "Plugin.";

/// The lines behind "For", in their order. Their values are taken by position.
inline constexpr std::array<std::string_view, 4> loopKeys{".VarName=", ".VarStart=", ".VarEnd=", ".VarStep="};

/// The value of an attribute line: what stands behind as many characters as the key has.
std::string_view valueBehind(std::string_view key, std::string_view line);

enum class Statement { none, loopStart, loopEnd, basicFunction, plugin, call };

/// What a line of the body is, told by its first characters in any letter case. Attribute lines, tags and empty lines
/// are none.
Statement statementOf(std::string_view line);

/// A line that belongs to the one before it: it begins with ".".
bool isAttribute(std::string_view line);

}  // namespace brasquelin
