#include "editor/addCommand.h"

#include <utility>

#include "editor/editorState.h"
#include "editor/formActions.h"
#include "editor/formFields.h"
#include "editor/references.h"
#include "editor/valueInput.h"
#include "text/text.h"

namespace brasquelin {

AddCommand::AddCommand()
    : entries_(callableEntries(editorState.document)),
      references_(callReferences(editorState.document)),
      replaced_(groupInForm(EditorList::commands)) {}

std::optional<std::size_t> AddCommand::firstChoice() const {
    if (edits()) return entryOfCall(entries_, replaced_.front());
    return entries_.empty() ? std::nullopt : std::optional<std::size_t>(0);
}

std::string AddCommand::note() const {
    if (!entries_.empty()) return {};
    return "Nothing can be called yet: include a library, a profile or a plugin first, or name the list of basic "
           "functions in the options.";
}

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

namespace {

/// The values that a call gives so far, each taken once; what is left belongs to no variable any more.
class FormerValues {
  public:
    explicit FormerValues(const std::vector<std::string>& call) : lines_(call.begin() + 1, call.end()) {}

    std::optional<std::string> take(const std::string& name) {
        std::optional<std::string> value;
        std::erase_if(lines_, [&](const std::string& line) {
            auto [itsName, itsValue] = valueOfCall(line);
            if (!equalIgnoringCase(itsName, name)) return false;
            value = std::move(itsValue);
            return true;
        });
        return value;
    }
    const std::vector<std::string>& left() const { return lines_; }

  private:
    std::vector<std::string> lines_;
};

}  // namespace

/// None when the user has stopped.
std::vector<std::string> AddCommand::changedLines(const CallableEntry& entry) const {
    if (const auto prompt = parameterPrompt(entry.name); !prompt.empty()) {
        const std::string former = parameterOfCall(entry.name, replaced_.front());
        const std::string answer = showValueInput(prompt, former, references_);
        Lines lines = replaced_;
        lines.front() = entry.name + "=" + (answer == canceledAnswer ? former : answer);
        return lines;
    }
    const auto parameters = parametersOfInclude(entry.path);
    FormerValues former(replaced_);
    ValueChain chain(parameters.size(), references_);
    Lines lines{replaced_.front()};
    for (const auto& [name, start, about] : parameters) {
        const auto value = former.take(name);
        const std::string answer = chain.ask(name, value.value_or(start), about);
        const bool asBefore = answer == canceledAnswer;
        if (!asBefore || value) lines.push_back("." + name + "=" + (asBefore ? *value : answer));
    }
    lines.insert(lines.end(), former.left().begin(), former.left().end());
    return chain.stopped() ? Lines() : lines;
}

void AddCommand::configure(std::size_t index) const {
    if (index >= entries_.size()) return;
    const bool again = edits() && firstChoice() == index;
    const auto lines = again ? changedLines(entries_[index]) : callLines(entries_[index]);
    if (!lines.empty()) putFromForm(EditorList::commands, lines);
}

}  // namespace brasquelin
