#include "fuzz/targets.h"

#include <algorithm>
#include <string>

#include "app/openFile.h"
#include "app/startUp.h"
#include "batch/jobLog.h"
#include "batch/outputMarks.h"
#include "batch/outputText.h"
#include "batch/runMessages.h"
#include "check/checkFile.h"
#include "config/configFile.h"
#include "editor/profileDocument.h"
#include "fuzz/world.h"
#include "platform/textFiles.h"
#include "support/slowReplacement.h"
#include "text/substitution.h"
#include "text/text.h"
#include "vars/commandLine.h"
#include "vars/loadPrompt.h"
#include "vars/rememberedValues.h"
#include "vars/typeSpec.h"

namespace brasquelin {

namespace {

bool readsConfig(const std::string& path) {
    settings.reset();
    return allowed([&] { readConfig(path); });
}

/// What is saved is read back.
void configuration(std::string_view input) {
    World world;
    const std::string path = world.write("Brasquelin.ini", input);
    if (!readsConfig(path)) return;
    ConfigFields fields;
    fields.libraryPath = settings.libraryPath;
    for (const auto& [name, value] : settings.globalVars) {
        fields.variables.push_back(std::string(name).append(1, '=').append(value));
    }
    const auto variables = settings.globalVars;
    if (!allowed([&] { writeConfig(path, fields); })) return;
    require(readsConfig(path), "a configuration that was written can be read");
    const bool same = std::equal(variables.begin(), variables.end(), settings.globalVars.begin(),
                                 [](const auto& left, const auto& right) { return left.name == right.name; });
    require(same, "the variables of a configuration stay");
}

void runFile(World& world, const std::string& path, const std::vector<std::string>& presets = {}) {
    allowed([] { readConfig(configFilePath()); });
    allowed([&] { openFile(path, presets); });
    if (world.desktop.prompt) allowed([&] { confirmPrompt(*world.desktop.prompt); });
    world.desktop.prompt.reset();
}

void profile(std::string_view input) {
    World world;
    runFile(world, world.write("x.bqp", input));
}

void library(std::string_view input) {
    World world;
    runFile(world, world.write("x.bqs", input));
    runFile(world, world.write("x.bqp",
                               "#Brasquelin Profile X\r\n[library]\r\n:Include $exepath$/x.bqs\r\n[/library]\r\n"
                               "[profile]\r\nX\r\n.text=a\r\n[/profile]\r\n"));
}

/// The list of basic functions, a function, and a profile that may call it.
void functionList(std::string_view input) {
    World world;
    const auto texts = pieces(input, 3);
    world.write("list.ini", texts[0]);
    world.write("function.ini", texts[1]);
    runFile(world, world.write("x.bqp", "#Brasquelin Profile X\r\n[profile]\r\n" + texts[2] + "\r\n[/profile]\r\n"));
}

void commandLine(std::string_view input) {
    World world;
    world.write("x.bqp",
                "#Brasquelin Profile X\r\n[var]\r\na\r\n.Type=List(b|c)\r\n.Info=i\r\n[/var]\r\n[profile]\r\n"
                "[/profile]\r\n");
    runFile(world, world / "x.bqp", parsePresets(input));
    listFilePath(input);
    isListMode(input);
    const FileArgument argument = parseFileArgument(argumentOfListLine(input));
    runFile(world, argument.path, argument.presets);
}

void list(std::string_view input) {
    World world;
    world.write("x.bqp", "#Brasquelin Profile X\r\n[profile]\r\n[/profile]\r\n");
    world.write("list.txt", input);
    allowed([&] { startUp("-f " + (world / "list.txt")); });
}

/// What was remembered is recalled, whatever the file held.
void remembered(std::string_view input) {
    World world;
    const auto texts = pieces(input, 3);
    world.write("pop.tmp", texts[0]);
    allowed([&] { recallValue(texts[1]); });
    const bool plain = texts[1].find_first_of("=\r\n") == std::string::npos && isUtf8(texts[1]) && !texts[1].empty() &&
                       texts[2].find_first_of("\r\n") == std::string::npos && isUtf8(texts[2]) &&
                       input.find('\0') == std::string_view::npos;
    if (!plain || !allowed([&] { rememberValue(texts[1], texts[2]); })) return;
    const auto recalled = recallValue(texts[1]);
    require(recalled && *recalled == texts[2], "what was remembered is recalled");
}

void typeSpecification(std::string_view input) {
    const auto texts = pieces(input, 2);
    const std::string& type = texts[0];
    allowed([&] { checkTypeSpec(type, "x", 1); });
    const VariableKind kind = kindOf(type);
    if (!isValidTypeSpec(type)) return;
    for (const auto item : choiceItems(type)) itemValue(kind, item);
    std::vector<std::string> labels;
    std::vector<std::string> values;
    if (isChoice(kind)) fillCombChoices(choiceText(type), labels, values);
    if (isChoice(kind)) allowed([&] { resolveChoice(type, texts[1]); });
    if (isChoice(kind)) allowed([&] { numberedItem(type, texts[1]); });
    dialogFilterOf(type);
}

/// What a plugin leaves behind.
void resultFile(std::string_view input) {
    World world;
    world.write("tool.exe", "");
    world.processes.actions.emplace_back("tool", [&] { world.write("tool.var", input); });
    runFile(world, world.write("x.bqp",
                               "#Brasquelin Profile X\r\n[library]\r\n:plugin $exepath$/tool.exe\r\n[/library]\r\n"
                               "[profile]\r\n$a$ $b$\r\n[/profile]\r\n"));
}

/// A document that was saved is the same when it is opened again.
void editor(std::string_view input) {
    World world;
    ProfileDocument first;
    newDocument(first);
    if (!allowed([&] { openDocument(first, world.write("x.bqp", input)); })) return;
    first.append(EditorList::commands, {"added"});
    saveDocument(first, world / "y.bqp");
    ProfileDocument second;
    newDocument(second);
    require(allowed([&] { openDocument(second, world / "y.bqp"); }), "a document that was saved can be opened");
    require(documentLines(first) == documentLines(second), "a document that was saved is the same");
}

void checker(std::string_view input) {
    World world;
    for (const char* name : {"x.bqp", "x.bqs", "list.ini", "Brasquelin.ini", "list.txt"}) {
        const std::string path = world.write(name, input);
        Checker checker;
        allowed([&] { checker.check(path); });
        checker.findings();
    }
    require(world.processes.commands.empty(), "the checker runs nothing");
}

/// The first line is expanded by the others, "name=value" or "form(name=value".
void expansion(std::string_view input) {
    constexpr std::size_t longest = 20000;  // the slow way takes its time
    constexpr std::string_view form = "form(";
    const World world;
    const std::string path = world.write("lines.txt", input);
    if (!allowed([&] { readTextFile(path); })) return;
    const auto file = readTextFile(path);
    if (file->lines.empty()) return;
    std::string slow = file->lines.front();
    ReferenceText fast(slow);
    for (std::size_t i = 1; i < file->lines.size() && slow.size() < longest; ++i) {
        std::string_view name = file->lines[i];
        const auto equals = name.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view value = name.substr(equals + 1);
        name = name.substr(0, equals);
        if (name.starts_with(form)) {
            name.remove_prefix(form.size());
            fast.replaceForm("text", name, value);
            slow = replaceAll(slow, "text($" + std::string(name) + "$)", value);
        } else {
            fast.replace(name, value);
            slow = replacedSlowly(name, value, slow);
        }
        require(fast.text() == slow, "a reference is replaced as the rule says");
    }
}

/// What comes from a shell, a job log and the other side of a run window, in pieces.
void runWindow(std::string_view input) {
    const std::string mark = "\x1etoken ";
    std::string whole;
    std::string parts;
    std::size_t ends = 0;
    const auto count = [&](const EndMark&) { ++ends; };
    OutputMarks atOnce(mark);
    atOnce.take(
        input, [&](std::string_view text) { whole += text; }, count);
    whole += atOnce.rest();
    const std::size_t before = ends;
    OutputMarks inPieces(mark);
    OutputText shown(1000);
    for (std::size_t i = 0; i < input.size(); i += 3) {
        inPieces.take(
            input.substr(i, 3), [&](std::string_view text) { parts += text; }, count);
        shown.append(input.substr(i, 3));
    }
    parts += inPieces.rest();
    require(whole == parts && ends == 2 * before, "marks are found however the output is cut");
    OutputText shownAtOnce(1000);
    shownAtOnce.append(input);
    require(shownAtOnce.text() == shown.text() || shown.leftOut(), "output is shown however it is cut");
    for (const auto& entry : parseJobLog(input)) {
        require(parseJobLog(encode(entry)) == std::vector{entry}, "an entry of a job log is read back");
    }
    RunMessageReader reader;
    for (auto& message : reader.take(input)) {
        message.text = onOneLine(message.text);
        RunMessageReader again;
        require(again.take(encode(message)) == std::vector{message}, "a message is read back");
    }
}

}  // namespace

const std::vector<FuzzTarget>& fuzzTargets() {
    static const std::vector<FuzzTarget> targets{{"configuration", configuration},
                                                 {"profile", profile},
                                                 {"library", library},
                                                 {"function-list", functionList},
                                                 {"command-line", commandLine},
                                                 {"list", list},
                                                 {"remembered", remembered},
                                                 {"type", typeSpecification},
                                                 {"result-file", resultFile},
                                                 {"editor", editor},
                                                 {"checker", checker},
                                                 {"expansion", expansion},
                                                 {"run-window", runWindow}};
    return targets;
}

}  // namespace brasquelin
