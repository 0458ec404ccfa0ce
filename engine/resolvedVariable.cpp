#include "engine/resolvedVariable.h"

namespace brasquelin {

ResolvedVariable VariableResolver::resolve(const VariableDeclaration& variable, std::string_view value) {
    ResolvedVariable resolved;
    resolved.name = variable.name;
    if (isChoice(kindOf(variable.typeSpec))) {
        resolved.choice = resolveChoice(variable.typeSpec, value);
    } else {
        resolved.choice.value = value;
    }
    if (resolved.choice.setsLabel) label_ = resolved.choice.label;
    if (!resolved.choice.clearsText) resolved.label = label_;
    return resolved;
}

void expandForms(ReferenceText& text, const ResolvedVariable& variable) {
    if (!variable.choice.hasForms) return;
    text.replaceForm("index", variable.name, variable.choice.index);
    text.replaceForm("text", variable.name, variable.label);
}

}  // namespace brasquelin
