#include "editor/references.h"

#include "config/configFile.h"
#include "text/fileFormat.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

using References = std::vector<std::string>;

std::string reference(std::string_view name) {
    return "$" + std::string(name) + "$";
}

void appendPluginVariables(References& references) {
    const auto& results = variableTables.pluginResults[0];
    for (const auto& result : results) references.push_back(reference(result.name));
}

void appendVariables(const ProfileDocument& document, References& references) {
    for (const auto& line : document.listVar) {
        if (!isAttribute(line)) references.push_back(reference(line));
    }
}

void appendGlobals(References& references) {
    for (const auto& variable : settings.globalVars) references.push_back(reference(variable.name));
}

void appendLoops(const ProfileDocument& document, References& references) {
    const auto& lines = document.listCommand;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        if (lines[i] == forWord) references.push_back(reference(valueBehind(loopKeys[0], lines[i + 1])));
    }
}

References forCommandList(const ProfileDocument& document, References references) {
    appendPluginVariables(references);
    appendVariables(document, references);
    appendGlobals(references);
    appendLoops(document, references);
    return references;
}

}  // namespace

References loopReferences(const ProfileDocument& document) {
    return forCommandList(document, {"$index$"});
}

References commandReferences(const ProfileDocument& document) {
    return forCommandList(document,
                          {"$exepath$", "$Index$", "$exepathdblslash$", "$scriptpath$", "$scriptpathdbslash$"});
}

References variableReferences() {
    References references{"$exepath$", "$Index$", "$exepathdbslash$", "$scriptpath$", "$scriptpathdbslash$"};
    appendPluginVariables(references);
    appendGlobals(references);
    return references;
}

References callReferences(const ProfileDocument& document) {
    References references{"$exepath$", "$Index$", "$exepathdblslash$", "$scriptpath$", "$scriptpathdbslash$"};
    appendPluginVariables(references);
    appendVariables(document, references);
    appendLoops(document, references);
    return references;
}

}  // namespace brasquelin
