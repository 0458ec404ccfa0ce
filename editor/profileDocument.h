// The profile in the editor as a document: three lists of lines and a name, without any window.
#pragma once

#include <compare>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/codePages.h"
#include "text/fileFormat.h"
#include "text/table.h"

namespace brasquelin {

/// The lists by the numbers that `activeList` gives them.
enum class EditorList { none = 0, include = 1, variables = 2, commands = 3 };

/// The current file is `settings.profilePath`: empty for a document that has none yet.
struct ProfileDocument {
    std::string profileName = "newprofile";
    std::vector<std::string> listInclude;
    std::vector<std::string> listVar;
    std::vector<std::string> listCommand;
    Table<std::string> pluginNames;       // what the command dialog offers; removing a line does not remove its name
    bool foreign = false;                 // opened from a file that does not begin as profiles do
    Encoding encoding = newFileEncoding;  // that of the file that was opened

    /// One line of a list is one line of the file: what enters here has blanks in place of line breaks.
    void append(EditorList which, const std::vector<std::string>& lines);
    void replaceLine(EditorList which, std::size_t line, std::string_view text);
    void rename(std::string_view name);

    std::vector<std::string>& list(EditorList which);
    const std::vector<std::string>& list(EditorList which) const;
};

/// A document without lines and without a file. Also forgets what plugins have answered.
void newDocument(ProfileDocument& document);

/// Replaces the document by the profile at `path`, which becomes the current file. The names of its plugins join those
/// that are known. Raises 62 for a file without a first line, 9 for a 257th plugin name, and the errors of opening; the
/// document is as it was then.
void openDocument(ProfileDocument& document, const std::string& path);

/// A plugin of the document.
struct DocumentPlugin {
    std::string line;
    std::string path;
    std::string parameters;
};
/// In the order of their lines. `profilePath` is the document's file.
std::vector<DocumentPlugin> pluginsOf(const ProfileDocument& document, const std::string& profilePath);

/// The profile file holds the document's lines in their sections, in the document's encoding. Raises the error of
/// writing.
void saveDocument(const ProfileDocument& document, const std::string& path);
std::vector<std::string> documentLines(const ProfileDocument& document);

/// A line of a file, counted from 1.
struct FileLine {
    std::size_t number = 0;
    std::string text;
};
/// What stands in no section of the file, such as remarks: a document does not hold it. Raises the errors of opening.
std::vector<FileLine> linesLostBySaving(const std::string& path);

/// A line of one of the lists.
struct DocumentPlace {
    EditorList list = EditorList::none;
    std::size_t line = 0;
    auto operator<=>(const DocumentPlace&) const = default;  // NOLINT(modernize-use-nullptr): the check's own mistake
};
/// The lines of the file, and where the lists stand in them.
class DocumentLayout {
  public:
    explicit DocumentLayout(const ProfileDocument& document);

    /// The lines of the file. They are given once only.
    std::vector<std::string> takeLines() { return std::move(lines_); }
    /// Where a line of the file (from 1) stands in the document; in no list for the header, tags and empty lines.
    DocumentPlace placeOf(std::size_t fileLine) const;

  private:
    void append(Section section, EditorList which, const std::vector<std::string>& content);

    struct Stretch {
        EditorList list;
        std::size_t begin;
        std::size_t size;
    };
    std::vector<std::string> lines_;
    std::vector<Stretch> stretches_;
};

/// The path of the current file; while there is none, one in a directory that exists.
std::string documentPath(const ProfileDocument& document);

/// The name that "Save as ..." proposes: in the configured directory while the document has no file, else behind the
/// current file.
std::string proposedFileName(const ProfileDocument& document);

/// Empties a list; the include list takes the plugin names with it.
void clearList(ProfileDocument& document, EditorList which);

}  // namespace brasquelin
