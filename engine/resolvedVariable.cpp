#include "engine/resolvedVariable.h"

namespace brasquelin {

void VariableResolver::resolve(const VariableDeclaration& variable, std::string_view value,
                               ResolvedVariable& resolved) {
    resolved.name = variable.name;
    resolved.label.clear();
    resolved.isChoice = isChoice(kindOf(variable.typeSpec));
    if (resolved.isChoice) {
        resolved.choice = resolveChoice(variable.typeSpec, value);
    } else {
        resolved.choice.value = value;
        resolved.choice.hasForms = resolved.choice.setsLabel = resolved.choice.clearsText = false;
    }
    if (resolved.choice.setsLabel) label_ = resolved.choice.label;
    if (!resolved.choice.clearsText) resolved.label = label_;
}

void expandForms(ReferenceText& text, const ResolvedVariable& variable) {
    if (!variable.choice.hasForms) return;
    text.replaceForm("index", variable.name, variable.choice.index);
    text.replaceForm("text", variable.name, variable.label);
}

}  // namespace brasquelin
