#include "vars/loadPrompt.h"

#include <algorithm>

#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/textFiles.h"
#include "text/text.h"
#include "vars/declarations.h"

namespace brasquelin {

namespace {

struct Prompts {
    std::shared_ptr<PromptForm> profile;
    std::shared_ptr<PromptForm> function;
    std::vector<std::string> functionArguments;
};
Prompts prompts;

void requireFile(const std::string& path) {
    if (fileExists(path)) return;
    showCritical("'" + path + "'\r\nError: unknown file");
    throw EndProgram(1);
}

/// The title behind a header of `headerLength` characters, blanks turned into "_"; line 1 must be longer than that by
/// more than one.
std::string titleInFirstLine(const std::string& path, std::size_t headerLength) {
    const auto file = readTextFile(path);
    const std::string_view line = file->lines.empty() ? std::string_view() : std::string_view(file->lines.front());
    if (characterCount(line) < headerLength + 2) {
        showCritical("Error while loading '" + path + "' line 1", errorTitle);
        throw EndProgram(1);
    }
    std::string title(fromCharacter(line, headerLength + 1));
    std::replace(title.begin(), title.end(), ' ', '_');
    return title;
}

bool needsUser(const PromptForm& form, const std::vector<std::string>& presets) {
    if (presets.empty()) return true;
    return std::any_of(form.rows.begin(), form.rows.end(), [](const PromptRow& row) { return row.askUser; });
}

void show(PromptForm& form, const OpenOptions& options) {
    if (desktop().hasWindows()) {
        desktop().showWindow(form.windowName(), !options.namedOnCommandLine);
        return;
    }
    desktop().showMessage("The values of '" + form.path + "' cannot be asked for without a display.", errorTitle,
                          Icon::exclamation);
    desktop().noteFailure();
}

void rejectUnknownType(const PromptForm& form, const PromptRow& row) {
    if (row.kind != VariableKind::unknown) return;
    showCritical("Error in file '" + form.path + "' : unknown var type '" + row.typeSpec + "' for var '" + row.name +
                 "'");
    throw EndProgram(1);
}

/// Builds the form from the declarations, applies the presets, and shows or confirms it.
void prompt(const std::shared_ptr<PromptForm>& form, const Table<VariableDeclaration>& declarations,
            OpenOptions options) {
    try {
        form->rows = buildRows(declarations);
        placeButtons(*form);
        applyPresets(*form, options.presets);
    } catch (const RunTimeError& error) {
        throw error.about(form->path);
    }
    form->endsProgram = options.namedOnCommandLine;
    form->confirmed = std::move(options.confirmed);
    const bool nothingToAsk = options.replaying && form->rows.empty();
    if (nothingToAsk || !needsUser(*form, options.presets)) {
        confirmPrompt(*form);
    } else {
        show(*form, options);
    }
}

std::shared_ptr<PromptForm> newForm(PromptKind kind, const std::string& path, std::string title) {
    auto form = std::make_shared<PromptForm>();
    form->kind = kind;
    form->path = path;
    form->title = std::move(title);
    return form;
}

}  // namespace

std::string readProfileTitle(const std::string& path) {
    return titleInFirstLine(path, std::string_view("#Brasquelin Profile ").size());
}

std::string readFunctionTitle(const std::string& path) {
    constexpr std::size_t libraryHeaderLength = 21;
    return titleInFirstLine(path, libraryHeaderLength);
}

void loadProfile(const std::string& path, OpenOptions options) {
    requireFile(path);
    std::string title = readProfileTitle(path);
    variableTables.pluginResults[0].resetCount();
    readProfileVariables(path, 1);
    const auto& declarations = variableTables.profileVariables[1];
    if (declarations.empty()) {
        variableTables.values[1].resetCount();
        options.runAtOnce();
        return;
    }
    prompts.profile = newForm(PromptKind::profile, path, std::move(title));
    prompt(prompts.profile, declarations, std::move(options));
}

void loadFunction(const std::string& path, OpenOptions options) {
    requireFile(path);
    std::string title = readFunctionTitle(path);
    readFunctionVariables(path);
    prompts.function = newForm(PromptKind::function, path, std::move(title));
    prompt(prompts.function, variableTables.functionVariables, std::move(options));
}

std::shared_ptr<PromptForm> currentPrompt(PromptKind kind) {
    return kind == PromptKind::profile ? prompts.profile : prompts.function;
}

void confirmPrompt(PromptForm& form) {
    std::vector<std::string> entries;
    entries.reserve(form.rows.size());
    for (const auto& row : form.rows) {
        rejectUnknownType(form, row);
        entries.push_back(row.label + row.value());
    }
    desktop().unloadWindow(form.windowName());
    if (form.kind == PromptKind::profile) {
        auto& values = variableTables.values[1];
        values.resetCount();
        for (auto& entry : entries) values.append(std::move(entry));
    } else {
        prompts.functionArguments = std::move(entries);
    }
    const auto confirmed = std::move(form.confirmed);
    if (confirmed) confirmed();
}

void promptClosed(const PromptForm& form) {
    if (form.endsProgram) throw EndProgram(0);
}

const std::vector<std::string>& functionArguments() {
    return prompts.functionArguments;
}

void resetPrompts() {
    prompts = Prompts();
}

}  // namespace brasquelin
