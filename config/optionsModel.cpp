#include "config/optionsModel.h"

#include "config/configFile.h"
#include "platform/desktop.h"
#include "platform/paths.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

std::string ask(const std::string& prompt, const std::string& proposed = {}) {
    return desktop().askText(prompt, "Brasquelin", proposed).value_or(std::string());
}

/// A cancelled dialog leaves the choice as it was.
void askForChoice(const FileDialogRequest& request, std::string& choice) {
    std::string chosen = desktop().askFile(request);
    if (!chosen.empty()) choice = std::move(chosen);
}

}  // namespace

OptionsModel::OptionsModel()
    : paths_{settings.libraryPath, settings.profileDirectory, settings.pluginPath, settings.basicFunctionPath},
      directoryChoice_(joinPath(programDirectory(), "Select this directory")),
      fileChoice_(joinPath(programDirectory(), "Select the file")) {
    for (const auto& [name, value] : settings.globalVars) {
        variables_.push_back(std::string(name).append("=").append(value));
    }
}

void OptionsModel::browse(Field field) {
    if (field == basicFunction) {
        askForChoice({FileDialogMode::open, "Select the basicfucntion file path", "*.ini|*.ini", fileChoice_},
                     fileChoice_);
        paths_[field] = shortPath(fileChoice_);
        return;
    }
    askForChoice({FileDialogMode::save, "Select a directory", "", directoryChoice_}, directoryChoice_);
    paths_[field] = shortPath(dirOf(directoryChoice_));
}

bool OptionsModel::addVariable() {
    const std::string name = ask("Enter the basic variant name :");
    if (name.empty()) return false;
    const std::string value = ask("Enter the basic variant value :");
    if (value.empty()) return false;
    variables_.push_back(name + "=" + value);
    return true;
}

void OptionsModel::removeVariable(std::optional<std::size_t> selected) {
    if (!selected || *selected >= variables_.size()) return;
    variables_.erase(variables_.begin() + static_cast<std::ptrdiff_t>(*selected));
}

void OptionsModel::modifyVariable(std::optional<std::size_t> selected) {
    if (!selected || *selected >= variables_.size()) return;
    const Assignment variable = splitAssignment(variables_[*selected]);
    const std::string name(variable.name);
    const std::string value = ask("Change the " + name + "'s value :", std::string(variable.value));
    if (!value.empty()) variables_[*selected] = name + "=" + value;
}

std::string OptionsModel::savingNote() {
    const std::string directory = savedClearDirectory();
    std::string note = "The variable TempDir is not set: the next start will empty no directory.";
    if (directory != "$TempDir$") note = "The next start will empty '" + directory + "'.";
    if (!settings.shellExec.empty()) note += "\r\nThe launcher '" + settings.shellExec + "' will not be kept.";
    return note;
}

void OptionsModel::save() const {
    writeConfig(configFilePath(),
                {paths_[library], paths_[profile], paths_[plugin], paths_[basicFunction], variables_});
    readConfig(configFilePath());
}

}  // namespace brasquelin
