#include "editor/formActions.h"

#include <utility>

#include "editor/editorState.h"
#include "editor/formFields.h"
#include "editor/references.h"
#include "editor/valueInput.h"
#include "platform/desktop.h"
#include "text/fileFormat.h"
#include "text/text.h"

namespace brasquelin {

namespace {

using Lines = std::vector<std::string>;

LineNumbers numbersOfGroup(EditorList which, std::size_t line) {
    return wholeGroups(editorState.document.list(which), which, {line});
}

/// While the form is open.
class InForm {
  public:
    explicit InForm(DocumentPlace place) { editorState.inForm = place; }
    ~InForm() { editorState.inForm.reset(); }
    InForm(const InForm&) = delete;
    InForm& operator=(const InForm&) = delete;
};

void tellNoForm(const std::string& line, const std::string& why) {
    desktop().showMessage("'" + line + "' cannot be shown in a form: " + why + "\r\nEdit (F2) changes it as text.",
                          "Brasquelin", Icon::information);
}

void openVariable(const Lines& group) {
    if (fieldsOfDeclaration(group)) return desktop().showWindow(ProgramWindow::addVar, true);
    tellNoForm(group.front(), "its lines are not those of a declaration.");
}

void openCommand(const Lines& group) {
    const Statement statement = statementOf(group.front());
    if (statement == Statement::loopStart) return askLoop();
    if (entryOfCall(callableEntries(editorState.document), group.front())) {
        return desktop().showWindow(ProgramWindow::addCommand, true);
    }
    tellNoForm(group.front(),
               statement == Statement::loopEnd ? "it has no values." : "nothing of that name can be called from here.");
}

}  // namespace

LineNumbers editInForm(EditorList which, const LineNumbers& selected) {
    if (selected.empty() || which == EditorList::include) return selected;
    const std::size_t begin = groupStart(editorState.document.list(which), which, selected.front());
    {
        const InForm inForm({which, begin});
        const Lines group = groupInForm(which);
        if (which == EditorList::variables) {
            openVariable(group);
        } else {
            openCommand(group);
        }
    }
    return {begin};
}

LineNumbers addCommandLine(const LineNumbers& selected) {
    const auto& state = editorState;
    const std::string answer = showValueInput("Command line :", {}, commandReferences(state.document));
    if (answer.empty() || answer == canceledAnswer) return selected;
    const std::size_t place = placeBehind(state.document.listCommand, EditorList::commands, selected);
    editorState.edited.change(
        [&](ProfileDocument& document) { insertLines(document.listCommand, place, {onOneLine(answer)}); });
    return {place};
}

void askLoop() {
    auto& state = editorState;
    const Lines group = groupInForm(EditorList::commands);
    const Lines old = valuesOfLoop(group);
    state.lstVar = loopReferences(state.document);
    const std::string name =
        desktop().askText("Enter the 'ForToNext' var name :", "Brasquelin", old.front()).value_or("");
    if (name.empty()) return;  // no loop would come of it
    ValueChain chain(loopKeys.size(), state.lstVar, 1);
    std::vector<std::string> values;
    for (const char* what : {"start", "end", "step"}) {
        const std::string& before = old[values.size() + 1];
        const std::string answer = chain.ask("Enter the 'ForToNext' var " + std::string(what) + " :", before);
        values.push_back(!group.empty() && answer == canceledAnswer ? before : answer);
    }
    Lines lines = loopLines(name, values[0], values[1], values[2]);
    if (chain.stopped() || lines.empty()) return;
    for (std::size_t i = lines.size(); i < group.size(); ++i) lines.push_back(group[i]);
    putFromForm(EditorList::commands, lines);
}

std::vector<std::string> groupInForm(EditorList which) {
    const auto& place = editorState.inForm;
    if (!place || place->list != which) return {};
    const auto& lines = editorState.document.list(which);
    std::vector<std::string> group;
    for (const std::size_t number : numbersOfGroup(which, place->line)) group.push_back(lines[number]);
    return group;
}

void putFromForm(EditorList which, const std::vector<std::string>& lines) {
    const auto& place = editorState.inForm;
    const LineNumbers old = place && place->list == which ? numbersOfGroup(which, place->line) : LineNumbers();
    editorState.edited.change([&](ProfileDocument& document) {
        if (old.empty()) return document.append(which, lines);
        auto& all = document.list(which);
        eraseLines(all, old);
        Lines whole;
        for (const auto& line : lines) whole.push_back(onOneLine(line));
        insertLines(all, old.front(), whole);
    });
}

}  // namespace brasquelin
