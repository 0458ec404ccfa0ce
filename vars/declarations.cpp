#include "vars/declarations.h"

#include <array>
#include <string>

#include "platform/onlooker.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/text.h"
#include "vars/builtIns.h"
#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

constexpr std::array<std::string_view, 6> builtIns{
    "exepath", "scriptpath", "exepathdblslash", "scriptpathdblslash", "exepathdbslash", "scriptpathdbslash"};

std::string withBuiltIns(std::string_view text, std::string_view scriptPath) {
    ReferenceText references{std::string(text)};
    expandBuiltIns(references, builtIns, [scriptPath] { return dirOf(scriptPath); });
    return references.take();
}

/// Where the two readers differ.
struct ReaderRules {
    bool countsEveryLine;
    bool skipsOtherAttributes;  // a fourth line that begins with "." but is no default
    bool endsCleanly;           // the end of the file inside a declaration is no error
    int pluginLevel;
};

class DeclarationReader {
  public:
    DeclarationReader(std::string_view path, const TextFile& file, Table<VariableDeclaration>& table,
                      const ReaderRules& rules)
        : path_(path), file_(file), table_(table), rules_(rules) {}

    void read() {
        while (nextLine()) {
            ++passes_;
            while (opensDeclaration() && readDeclaration()) continue;
            if (ended_) return;
            block_.noteTag(line_);
        }
    }

    /// The line that was read last.
    int line() const { return static_cast<int>(position_); }
    /// True when the declarations are the same whatever was read before, whatever plugins have told and whoever looks
    /// on.
    bool dependsOnFileAlone() const { return dependsOnFileAlone_; }

  private:
    bool nextLine() {
        if (position_ >= file_.lines.size()) return false;
        line_ = file_.lines[position_++];
        return true;
    }

    /// False at the end of the file, for the reader that ends there without an error.
    bool needLine() {
        if (nextLine()) return true;
        if (!rules_.endsCleanly) throw RunTimeError(ErrorNumber::inputPastEnd, path_);
        ended_ = true;
        return false;
    }

    /// As messages count.
    int lineNumber() const { return static_cast<int>(rules_.countsEveryLine ? position_ : passes_); }

    bool opensDeclaration() const { return block_.isOpen() && !ended_ && !line_.empty() && line_.front() != '['; }

    /// True when the line behind the declaration is to be examined again.
    bool readDeclaration() {
        VariableDeclaration& record = table_.nextRow();
        record.name = line_;
        record.line = line();
        if (!needLine()) return false;
        readTypeSpec(record);
        if (!needLine()) return false;
        record.info = valueBehind(infoKey, line_);
        const bool hasFourthLine = nextLine();
        const bool again = readDefault(record, hasFourthLine);
        table_.takeNextRow();
        ended_ = !hasFourthLine && rules_.endsCleanly;
        return again;
    }

    void readTypeSpec(VariableDeclaration& record) {
        const auto typeSpec = checkedTypeSpec();
        if (typeSpec.find('$') == std::string_view::npos) {
            record.typeSpec = typeSpec;
        } else {
            record.typeSpec = expandPluginVars(typeSpec, rules_.pluginLevel);
            dependsOnFileAlone_ = false;
        }
    }

    std::string_view checkedTypeSpec() {
        const auto typeSpec = valueBehind(typeKey, line_);
        try {
            checkTypeSpec(typeSpec, path_, lineNumber());
        } catch (const ParseError& error) {
            if (!onlooker() || !onlooker()->takes(error.report(), {"bad-type", {path_, line()}})) throw;
            dependsOnFileAlone_ = false;  // without whoever looks on there are none
            return "Text";
        }
        return typeSpec;
    }

    bool readDefault(VariableDeclaration& record, bool hasFourthLine) {
        if (hasFourthLine && startsWithIgnoringCase(line_, defaultKey)) {
            record.defaultValue = withBuiltIns(valueBehind(defaultKey, line_), path_);
            return false;
        }
        if (hasFourthLine && rules_.skipsOtherAttributes && isAttribute(line_)) {
            dependsOnFileAlone_ = false;  // the default is what the row held before
            return false;
        }
        record.defaultValue.clear();
        return true;
    }

    std::string path_;
    const TextFile& file_;
    Table<VariableDeclaration>& table_;
    ReaderRules rules_;
    std::string_view line_;
    std::size_t position_ = 0;
    std::size_t passes_ = 0;
    SectionState block_{Section::var};
    bool ended_ = false;
    bool dependsOnFileAlone_ = true;
};

/// The declarations of an unchanged file, by the reader that has read them. Their defaults may name the program
/// directory.
template <typename Reader>
struct KeptDeclarations {
    Table<VariableDeclaration> table;
    std::string exeDirectory;
};
struct ProfileReader {};
struct FunctionReader {};

std::shared_ptr<const TextFile> openFor(std::string_view path, Table<VariableDeclaration>& table) {
    try {
        return readTextFile(path);
    } catch (const RunTimeError&) {
        table.resetCount();
        throw;
    }
}

/// True when the reader has read the unchanged file before.
template <typename Reader>
bool takeKept(const TextFile& file, Table<VariableDeclaration>& table) {
    const auto kept = file.understood.get<KeptDeclarations<Reader>>();
    if (kept == nullptr || kept->exeDirectory != exeDirectory()) return false;
    table.take(kept->table);
    return true;
}

template <typename Reader>
void keep(const TextFile& file, Table<VariableDeclaration>& table) {
    KeptDeclarations<Reader> kept{{}, exeDirectory()};
    for (const auto& declaration : table) kept.table.append(declaration);
    table.take(kept.table);
    file.understood.keep(std::move(kept));
}

template <typename Reader>
bool readDeclarations(std::string_view path, const TextFile& file, Table<VariableDeclaration>& table,
                      const ReaderRules& rules, OnParseError onParseError) {
    if (takeKept<Reader>(file, table)) return true;
    table.resetCount();
    DeclarationReader reader(path, file, table, rules);
    try {
        reader.read();
        if (reader.dependsOnFileAlone()) keep<Reader>(file, table);
    } catch (const ParseError& error) {
        table.resetCount();
        if (onParseError == OnParseError::endProgram) {
            endWithMessage(error.report(), {"bad-type", {std::string(path), reader.line()}}, errorTitle);
        }
        showCritical(error.report(), errorTitle);
        return false;
    } catch (const RunTimeError& error) {
        // The declarations read so far stay and the load goes on.
        const bool taken = onlooker() && onlooker()->takes(error, {std::string(path), reader.line()});
        if (!taken) report(error, path);
    }
    return true;
}

constexpr ReaderRules functionRules{false, false, false, 0};

}  // namespace

bool readProfileVariables(std::string_view path, int level, OnParseError onParseError) {
    const ReaderRules rules{true, true, true, level};
    auto& table = variableTables.profileVariables[level];
    const auto file = openFor(path, table);
    return readDeclarations<ProfileReader>(path, *file, table, rules, onParseError);
}

bool readFunctionVariables(std::string_view path, OnParseError onParseError) {
    auto& table = variableTables.functionVariables;
    const auto file = openFor(path, table);
    return readDeclarations<FunctionReader>(path, *file, table, functionRules, onParseError);
}

bool readFunctionVariables(std::string_view path, const TextFile& file) {
    return readDeclarations<FunctionReader>(path, file, variableTables.functionVariables, functionRules,
                                            OnParseError::endProgram);
}

}  // namespace brasquelin
