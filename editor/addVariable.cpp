#include "editor/addVariable.h"

#include <algorithm>

#include "editor/editorState.h"
#include "editor/formActions.h"
#include "editor/formFields.h"
#include "editor/references.h"
#include "editor/valueInput.h"
#include "platform/desktop.h"
#include "text/fileFormat.h"
#include "text/text.h"

namespace brasquelin {

AddVariable::AddVariable() : references_(variableReferences()), replaced_(groupInForm(EditorList::variables)) {
    const auto declared = fieldsOfDeclaration(replaced_);
    if (!declared) return;
    fields = declared->fields;
    furtherLines_.assign(replaced_.begin() + static_cast<std::ptrdiff_t>(declared->lines), replaced_.end());
}

/// A type that has use for its own choices stays.
void AddVariable::preferType(const char* type, const std::string& added, std::size_t entries) {
    const bool inUse = (usesList() && !fields.listChoices.empty()) || (usesComb() && !fields.combEntries.empty());
    if (entries == 1 && !inUse && added != canceledAnswer) fields.type = type;
}

void AddVariable::askListChoice() {
    const std::string choice = showValueInput("Add to list", {}, references_);
    fields.listChoices.push_back(choice);
    preferType("List", choice, fields.listChoices.size());
}

void AddVariable::editListChoice(std::size_t index) {
    std::string& choice = fields.listChoices.at(index);
    const std::string answer = showValueInput("Edit this value :", choice, references_);
    if (answer != canceledAnswer) choice = answer;
}

void AddVariable::editCombEntry(std::size_t index) {
    std::string& entry = fields.combEntries.at(index);
    const auto parts = partsOfCombEntry(entry);
    const std::string label = showValueInput("Add to comb: name", parts ? parts->label : entry, references_);
    if (label == canceledAnswer) return;
    const std::string command = showValueInput("Add to comb: com", parts ? parts->command : "", references_);
    if (command != canceledAnswer) entry = combEntry(label, command);
}

void AddVariable::askCombEntry() {
    const std::string label = showValueInput("Add to comb: name", {}, references_);
    if (isReference(label)) {
        fields.combEntries.push_back(label);
        desktop().showMessage(
            "'" + label + "' is added as it stands. A profile refuses a comb whose entries have no value in brackets.",
            "Brasquelin", Icon::exclamation);
        return;
    }
    fields.combEntries.push_back(combEntry(label, showValueInput("Add to comb: com", {}, references_)));
    preferType("Comb", label, fields.combEntries.size());
}

bool AddVariable::isDeclaredElsewhere() const {
    const auto& lines = editorState.document.listVar;
    const auto others = std::count_if(lines.begin(), lines.end(), [this](const std::string& line) {
        return !isAttribute(line) && equalIgnoringCase(line, fields.name);
    });
    return others > (edits() && equalIgnoringCase(replaced_.front(), fields.name) ? 1 : 0);
}

std::string AddVariable::note() const {
    if (fields.name.empty()) return "It has no name: a profile cannot use it.";
    if (isDeclaredElsewhere()) return "'" + fields.name + "' is declared already.";
    const bool noChoice = (usesList() && fields.listChoices.empty()) || (usesComb() && fields.combEntries.empty());
    return noChoice ? "There is nothing to choose from yet." : "";
}

bool AddVariable::isReference(const std::string& label) const {
    return std::any_of(references_.begin(), references_.end(),
                       [&](const std::string& reference) { return equalIgnoringCase(label, reference); });
}

void AddVariable::add() const {
    auto lines = declarationLines(fields);
    lines.insert(lines.end(), furtherLines_.begin(), furtherLines_.end());
    putFromForm(EditorList::variables, lines);
}

}  // namespace brasquelin
