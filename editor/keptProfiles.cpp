#include "editor/keptProfiles.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "config/configFile.h"
#include "editor/editorState.h"
#include "platform/files.h"
#include "platform/keptFiles.h"
#include "platform/paths.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "text/text.h"
#include "vars/variableTables.h"

namespace brasquelin {

NLOHMANN_JSON_SERIALIZE_ENUM(Encoding, {{Encoding::utf8, "UTF-8"},
                                        {Encoding::utf8WithMark, "UTF-8 with mark"},
                                        {Encoding::ansi, "ANSI"}})

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view keptStart = "profile";

std::string dumped(const Json& value) {
    return value.dump(0, ' ', false, Json::error_handler_t::replace);
}

/// True for what stands between quotes as it is.
bool isPlain(std::string_view line) {
    return isAscii(line) &&
           std::none_of(line.begin(), line.end(), [](char byte) { return byte < ' ' || byte == '"' || byte == '\\'; });
}

/// An object as a Json would be written. Its lines, of which there may be very many, never become one.
class KeptText {
  public:
    void add(std::string_view name, const Json& value) {
        begin(name);
        text_ += dumped(value);
    }

    void addLines(std::string_view name, const std::vector<std::string>& lines) {
        if (lines.empty()) return add(name, Json::array());
        begin(name);
        char before = '[';
        for (const auto& line : lines) {
            text_.append(1, std::exchange(before, ',')).append(1, '\n');
            if (isPlain(line)) {
                text_.append(1, '"').append(line).append(1, '"');
            } else {
                text_ += dumped(line);
            }
        }
        text_ += "\n]";
    }

    std::string take() { return std::move(text_.append("\n}\n")); }

  private:
    void begin(std::string_view name) {
        text_ += text_.empty() ? "{\n" : ",\n";
        text_ += dumped(name) + ": ";
    }

    std::string text_;
};

KeptProfile fromJson(const Json& all) {
    KeptProfile kept;
    kept.path = all.at("path");
    kept.document.rename(all.at("name").get<std::string>());
    kept.document.append(EditorList::include, all.at("library"));
    kept.document.append(EditorList::variables, all.at("var"));
    kept.document.append(EditorList::commands, all.at("profile"));
    for (const auto& name : all.at("plugins")) kept.document.pluginNames.append(name);
    kept.document.foreign = all.at("foreign");
    kept.document.encoding = all.at("encoding");
    return kept;
}

std::string offerText(const std::string& file) {
    try {
        const KeptProfile kept = readKept(file);
        const std::string of = kept.path.empty() ? "The new profile '" + kept.document.profileName + "'"
                                                 : "What was changed in '" + fileNameOf(kept.path) + "'";
        return of + " was not saved, but kept.";
    } catch (const RunTimeError&) {
        return "'" + fileNameOf(file) + "', which keeps what was not saved, cannot be read.";
    }
}

}  // namespace

void writeKept(const std::string& file, const KeptProfile& kept) {
    const ProfileDocument& document = kept.document;
    const auto& plugins = document.pluginNames;
    KeptText text;
    text.add("path", kept.path);
    text.add("name", document.profileName);
    text.addLines("library", document.listInclude);
    text.addLines("var", document.listVar);
    text.addLines("profile", document.listCommand);
    text.addLines("plugins", {plugins.begin(), plugins.end()});
    text.add("foreign", document.foreign);
    text.add("encoding", document.encoding);
    writeFile(file, text.take());
}

KeptProfile readKept(const std::string& file) {
    try {
        return fromJson(Json::parse(readFileBytes(file, mostTextBytes)));
    } catch (const Json::exception&) {
        throw RunTimeError(ErrorNumber::deviceError, file).because("It holds no kept profile.");
    }
}

void keepUnsaved() {
    auto& state = editorState;
    if (state.edited.isSaved()) {
        if (!state.keptFile.empty()) deleteFile(state.keptFile);
        state.keptFile.clear();
        return;
    }
    if (state.keptFile.empty()) state.keptFile = unusedKeptFile(keptStart);
    writeKept(state.keptFile, {state.document, settings.profilePath});
}

bool tryToKeep() {
    return reporting(editorState.keptFile, keepUnsaved);
}

void leaveKept() {
    editorState.keptFile.clear();
    limitKeptFiles(keptStart);
}

std::optional<KeptOffer> keptOffer() {
    const auto left = keptFilesBut(keptStart, editorState.keptFile);
    const auto stamp = left.empty() ? std::nullopt : fileStamp(left.front());
    if (!stamp) return std::nullopt;
    auto& last = editorState.lastOffer;
    if (last.file != left.front() || last.stamp != *stamp) last = {left.front(), offerText(left.front()), *stamp};
    return last;
}

bool restoreKept(const std::string& file) {
    return reporting(file, [&] {
        KeptProfile kept = readKept(file);
        tryToKeep();
        leaveKept();
        editorState.edited.replace([&](ProfileDocument& document) { document = std::move(kept.document); });
        editorState.edited.markUnsaved();
        settings.profilePath = kept.path;
        variableTables.pluginResults[0].resetCount();
        keepUnsaved();
        discardKept(file);
    });
}

void discardKept(const std::string& file) {
    deleteFile(file);
}

}  // namespace brasquelin
