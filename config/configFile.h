// The configuration file "Brasquelin.ini": settings and global variables.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "text/substitution.h"
#include "text/table.h"

namespace brasquelin {

struct TextFile;

struct Settings {
    std::string libraryPath;
    std::string profilePath;       // the profile editor keeps its current file here, too
    std::string profileDirectory;  // what the configuration gave for it
    std::string pluginPath;
    std::string basicFunctionPath;
    std::string shellExec;

    Table<NamedValue> globalVars;

    std::shared_ptr<const TextFile> readFrom;  // the file that the variables were last read from, completely

    bool startingUp = false;  // "clear" acts only while this is set
    std::string commandLine;  // without the program's own path

    void reset() { *this = Settings(); }
};
extern Settings settings;

/// The program directory's "Brasquelin.ini".
const std::string& configFilePath();

/// Reads the file into `settings`. Keys that do not occur leave their setting as it was; the global variables start
/// over. Raises the error of opening the file, 5 for a variable without "=", 9 for a 257th one.
void readConfig(std::string_view path);

/// What the options window saves.
struct ConfigFields {
    std::string libraryPath;
    std::string profilePath;
    std::string pluginPath;
    std::string basicFunctionPath;
    std::vector<std::string> variables;  // name=value
};

/// The directory that the next written file will have emptied: the variable TempDir as it was last read, or
/// "$TempDir$".
std::string savedClearDirectory();

/// Writes the file anew: paths in lower case with "$exepath$" in place of the program directory. Does not read it back.
void writeConfig(std::string_view path, const ConfigFields& fields);

/// Every reference to a global variable replaced, in table order.
std::string expandGlobals(std::string_view text);
void expandGlobals(ReferenceText& text);

}  // namespace brasquelin
