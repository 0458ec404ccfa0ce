#include "editor/addCommand.h"

#include "editor/editorState.h"
#include "editor/references.h"
#include "editor/valueInput.h"

namespace brasquelin {

AddCommand::AddCommand()
    : entries_(callableEntries(editorState.document)), references_(callReferences(editorState.document)) {}

std::vector<std::string> AddCommand::callLines(const CallableEntry& entry) const {
    if (const auto prompt = parameterPrompt(entry.name); !prompt.empty()) {
        return {entry.name + "=" + showValueInput(prompt, {}, references_)};
    }
    const auto parameters = parametersOfInclude(entry.path);
    ValueChain chain(parameters.size(), references_);
    std::vector<std::string> lines{entry.name};
    for (const auto& [name, start, about] : parameters) {
        lines.push_back("." + name + "=" + chain.ask(name, start, about));
    }
    return chain.stopped() ? std::vector<std::string>() : lines;
}

void AddCommand::configure(std::size_t index) const {
    if (index >= entries_.size()) return;
    const auto lines = callLines(entries_[index]);
    editorState.edited.change([&lines](ProfileDocument& document) { document.append(EditorList::commands, lines); });
}

}  // namespace brasquelin
