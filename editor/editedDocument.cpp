#include "editor/editedDocument.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace brasquelin {

namespace {

constexpr std::array<EditorList, 3> allLists{EditorList::include, EditorList::variables, EditorList::commands};

std::vector<std::string> namesIn(const Table<std::string>& table) {
    return {table.begin(), table.end()};
}

void apply(const LineChange& change, std::vector<std::string>& lines, bool forward) {
    if (forward) {
        change.applyTo(lines);
    } else {
        change.takeBackFrom(lines);
    }
}

void apply(const LineChange& change, Table<std::string>& table, bool forward) {
    if (change.empty()) return;
    auto names = namesIn(table);
    apply(change, names, forward);
    table.resetCount();
    for (auto& name : names) table.append(std::move(name));
}

}  // namespace

std::size_t EditedDocument::Step::bytes() const {
    std::size_t sum = sizeof(Step) + nameBefore.size() + nameAfter.size() + pluginNames.bytes();
    for (const auto& list : lists) sum += list.bytes();
    return sum;
}

EditedDocument::Step EditedDocument::stepBetween(const ProfileDocument& before, const ProfileDocument& after) {
    Step step;
    for (std::size_t i = 0; i < allLists.size(); ++i) {
        step.lists[i] = changeBetween(before.list(allLists[i]), after.list(allLists[i]));
    }
    step.pluginNames = changeBetween(namesIn(before.pluginNames), namesIn(after.pluginNames));
    step.nameBefore = before.profileName;
    step.nameAfter = after.profileName;
    return step;
}

bool EditedDocument::isEmpty(const Step& step) {
    return step.nameBefore == step.nameAfter && step.pluginNames.empty() &&
           std::all_of(step.lists.begin(), step.lists.end(), [](const LineChange& list) { return list.empty(); });
}

void EditedDocument::change(const Change& change) {
    ProfileDocument changed = document_;
    change(changed);
    Step step = stepBetween(document_, changed);
    document_ = std::move(changed);
    if (isEmpty(step)) return;
    const std::size_t bytes = step.bytes();
    history_.add(std::move(step), bytes);
}

void EditedDocument::rename(std::string_view name) {
    Step* last = history_.growing();
    const std::string before = document_.profileName;
    document_.rename(name);
    if (document_.profileName == before) return;
    if (!last || !last->ofNameOnly) {
        Step step;
        step.nameBefore = before;
        step.ofNameOnly = true;
        history_.add(std::move(step), sizeof(Step));
        last = history_.growing();
    }
    last->nameAfter = document_.profileName;
    history_.resizeGrowing(last->bytes());
}

void EditedDocument::replace(const Change& change) {
    ProfileDocument changed = document_;
    change(changed);
    document_ = std::move(changed);
    history_.clear();
    neverSaved_ = false;
}

void EditedDocument::markSaved() {
    document_.foreign = false;
    history_.markSaved();
    neverSaved_ = false;
}

DocumentPlace EditedDocument::undo() {
    return canUndo() ? apply(history_.undo(), false) : DocumentPlace();
}

DocumentPlace EditedDocument::redo() {
    return canRedo() ? apply(history_.redo(), true) : DocumentPlace();
}

DocumentPlace EditedDocument::apply(const Step& step, bool forward) {
    DocumentPlace place;
    for (std::size_t i = 0; i < allLists.size(); ++i) {
        const LineChange& list = step.lists[i];
        if (list.empty()) continue;
        brasquelin::apply(list, document_.list(allLists[i]), forward);
        if (place.list == EditorList::none) place = {allLists[i], list.position};
    }
    brasquelin::apply(step.pluginNames, document_.pluginNames, forward);
    document_.profileName = forward ? step.nameAfter : step.nameBefore;
    return place;
}

}  // namespace brasquelin
