#include "editor/formFields.h"

#include <algorithm>

#include "text/fileFormat.h"
#include "text/text.h"
#include "vars/typeSpec.h"

namespace brasquelin {

namespace {

/// The choice of the type field that makes such a type text; empty for none.
std::string typeOf(std::string_view typeSpec) {
    for (const auto& type : variableTypes()) {
        if (type == "Text" && equalIgnoringCase(typeSpec, type)) return type;
        if (startsWithIgnoringCase(typeSpec, type + "(") && typeSpec.ends_with(')')) return type;
    }
    return {};
}

void readType(std::string_view typeSpec, VariableFields& fields) {
    const std::string_view inner = fields.type == "Text" ? std::string_view() : typeSpec.substr(fields.type.size() + 1);
    const std::string_view content = withoutLast(inner);
    if (fields.type != "List" && fields.type != "Comb") {
        if (!inner.empty()) fields.filter = content;
        return;
    }
    auto& entries = fields.type == "List" ? fields.listChoices : fields.combEntries;
    if (content.empty()) return;
    for (const auto item : split(content, itemSeparator)) entries.emplace_back(item);
}

}  // namespace

std::optional<DeclaredFields> fieldsOfDeclaration(const std::vector<std::string>& group) {
    if (group.size() < 3 || isAttribute(group[0])) return std::nullopt;
    const auto typeSpec = valueBehind(typeKey, group[1]);
    DeclaredFields declared{{}, 3};
    VariableFields& fields = declared.fields;
    fields.name = group[0];
    fields.type = typeOf(typeSpec);
    fields.info = valueBehind(infoKey, group[2]);
    if (fields.type.empty()) return std::nullopt;
    readType(typeSpec, fields);
    if (group.size() > 3 && startsWithIgnoringCase(group[3], defaultKey)) {
        fields.defaultValue = valueBehind(defaultKey, group[3]);
        ++declared.lines;
    }
    return declared;
}

std::optional<CombParts> partsOfCombEntry(std::string_view entry) {
    if (entry.find('[') == std::string_view::npos || !entry.ends_with(']')) return std::nullopt;
    return CombParts{std::string(combLabel(entry)), std::string(combValue(entry))};
}

std::optional<std::size_t> entryOfCall(const std::vector<CallableEntry>& entries, std::string_view line) {
    const auto isCalled = [line](const CallableEntry& entry) {
        if (parameterPrompt(entry.name).empty()) return equalIgnoringCase(line, entry.name);
        return startsWithIgnoringCase(line, entry.name + "=");
    };
    const auto found = std::find_if(entries.begin(), entries.end(), isCalled);
    if (found == entries.end()) return std::nullopt;
    return static_cast<std::size_t>(found - entries.begin());
}

std::string parameterOfCall(std::string_view entry, std::string_view line) {
    return std::string(line.substr(std::min(line.size(), entry.size() + 1)));
}

CallValue valueOfCall(std::string_view line) {
    const Assignment parts = splitAssignment(line.substr(1));
    return {std::string(parts.name), std::string(parts.value)};
}

std::vector<std::string> valuesOfLoop(const std::vector<std::string>& group) {
    std::vector<std::string> values(loopKeys.size());
    for (std::size_t i = 0; i < values.size() && i + 1 < group.size(); ++i) {
        values[i] = valueBehind(loopKeys[i], group[i + 1]);
    }
    return values;
}

}  // namespace brasquelin
