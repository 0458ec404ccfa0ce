#include "editor/addVariable.h"

#include <algorithm>

#include "editor/editorState.h"
#include "editor/references.h"
#include "editor/valueInput.h"
#include "platform/desktop.h"
#include "text/text.h"

namespace brasquelin {

AddVariable::AddVariable() : references_(variableReferences()) {}

void AddVariable::askListChoice() {
    fields.listChoices.push_back(showValueInput("Add to list", {}, references_));
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
}

bool AddVariable::isReference(const std::string& label) const {
    return std::any_of(references_.begin(), references_.end(),
                       [&](const std::string& reference) { return equalIgnoringCase(label, reference); });
}

void AddVariable::add() const {
    editorState.edited.change(
        [this](ProfileDocument& document) { document.append(EditorList::variables, declarationLines(fields)); });
}

}  // namespace brasquelin
