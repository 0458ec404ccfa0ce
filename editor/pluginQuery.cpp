#include "editor/pluginQuery.h"

#include <algorithm>
#include <vector>

#include "config/configFile.h"
#include "editor/editorState.h"
#include "engine/plugins.h"
#include "platform/desktop.h"
#include "platform/reporting.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

using Plugins = std::vector<DocumentPlugin>;

Plugins documentPlugins() {
    return pluginsOf(editorState.document, settings.profilePath);
}

Plugins newPlugins() {
    Plugins plugins = documentPlugins();
    std::erase_if(plugins, [](const DocumentPlugin& plugin) {
        const auto& lines = editorState.newPlugins;
        return std::find(lines.begin(), lines.end(), plugin.line) == lines.end();
    });
    return plugins;
}

void tellProgress(std::size_t number, std::size_t count, const std::string& path) {
    const std::string place = count > 1 ? " " + std::to_string(number) + " of " + std::to_string(count) : "";
    tellStatus("Plugin" + place + ": '" + fileNameOf(path) + "' ...");
}

struct Failure {
    RunTimeError error;
    std::string path;  // of the plugin
};

void tellFailures(const std::vector<Failure>& failures) {
    if (failures.size() == 1) return report(failures.front().error, failures.front().path);
    if (failures.empty()) return;
    std::string text = std::to_string(failures.size()) + " plugins have failed:";
    for (const auto& [error, path] : failures) text += "\r\n\r\n" + error.reportWhileLoading(path);
    showCritical(text, errorTitle);
}

void query(const Plugins& plugins) {
    std::vector<Failure> failures;
    std::size_t number = 0;
    for (const auto& plugin : plugins) {
        tellProgress(++number, plugins.size(), plugin.path);
        try {
            runPlugin(plugin.path, plugin.parameters, 0);
        } catch (const RunTimeError& error) {
            if (error.number() == ErrorNumber::userInterrupt) break;
            failures.push_back({error, plugin.path});
        }
    }
    const std::size_t left = plugins.size() - number;
    tellStatus(left == 0 ? ""
                         : "Stopped: " + std::to_string(left) + " more plugins were not asked for their variables.");
    tellFailures(failures);
}

}  // namespace

void queryPlugins() {
    editorState.newPlugins.clear();
    query(documentPlugins());
}

std::string newPluginsNote() {
    const Plugins plugins = newPlugins();
    if (plugins.empty()) return {};
    const std::string which = plugins.size() == 1 ? "'" + fileNameOf(plugins.front().path) + "'"
                                                  : std::to_string(plugins.size()) + " new plugins";
    return "The variables of " + which + " are not known yet.";
}

void queryNewPlugins() {
    const Plugins plugins = newPlugins();
    editorState.newPlugins.clear();
    query(plugins);
}

}  // namespace brasquelin
