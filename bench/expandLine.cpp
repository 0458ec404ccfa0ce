// Expansion of one profile line, beside a peer that searches the whole line for every name in turn.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "config/configFile.h"
#include "engine/engineTables.h"
#include "engine/expandProfileLine.h"
#include "platform/paths.h"
#include "text/text.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

const std::string line = "$exepath$/tool --input $source$ --size $size$ --part $i$ --to $global7$/out.bin";
const std::string scriptPath = "/profiles/x.bqp";

/// Declared and assigned variables, 20 global variables, two open loops; the line above has 5 references.
void fillTables(std::size_t declared = 10) {
    settings.reset();
    variableTables.reset();
    engineTables.reset();
    for (int i = 0; i < 20; ++i) {
        settings.globalVars.append({"global" + std::to_string(i), "/data/" + std::to_string(i)});
    }
    std::vector<std::string> names{"source",  "target", "size",   "format", "quality",
                                   "bitrate", "codec",  "preset", "start",  "stop"};
    while (names.size() < declared) names.push_back("further" + std::to_string(names.size()));
    names.resize(declared);
    for (const auto& name : names) {
        variableTables.profileVariables[1].append({name, "Text", "none", "default"});
        variableTables.values[1].append(std::string(name).append("=value of ").append(name));
    }
    auto& loops = engineTables.loops[1];
    loops.depth = 2;
    loops.started = 2;
    loops.records = {{"i", 1, 9, 1, 5, "5", 1}, {"inner", 1, 9, 1, 7, "7", 1}};
}

/// Of so many variables that are declared, in a line that is so many times as long.
void expandOneLine(benchmark::State& state) {
    fillTables(static_cast<std::size_t>(state.range(0)));
    std::string whole;
    for (std::int64_t i = 0; i < state.range(1); ++i) whole += line;
    for (auto _ : state) {
        std::string text = whole;
        benchmark::DoNotOptimize(expandProfileLine(text, 1, scriptPath, 1));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(expandOneLine)
    ->Args({5, 1})
    ->Args({10, 1})
    ->Args({50, 1})
    ->Args({250, 1})
    ->Args({10, 10})
    ->Args({10, 100})
    ->Args({10, 1000});

void peerSearchesForEveryName(benchmark::State& state) {
    fillTables();
    std::vector<std::pair<std::string, std::string>> names{{"exepath", "/opt"},
                                                           {"exepathdblslash", "/opt"},
                                                           {"scriptpath", "/profiles"},
                                                           {"scriptpathdblslash", "/profiles"},
                                                           {"index", "1"}};
    for (int i = 0; i < 20; ++i) names.emplace_back("global" + std::to_string(i), "/data/" + std::to_string(i));
    for (const auto& entry : variableTables.values[1]) {
        const Assignment assignment = splitAssignment(entry);
        names.emplace_back(assignment.name, assignment.value);
    }
    names.emplace_back("i", "5");
    names.emplace_back("inner", "7");
    for (auto& [name, value] : names) name.insert(0, "$").append("$");
    for (auto _ : state) {
        std::string text = line;
        for (const auto& [name, value] : names) {
            for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at + value.size())) {
                text.replace(at, name.size(), value);
            }
        }
        benchmark::DoNotOptimize(text);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(peerSearchesForEveryName);

}  // namespace
}  // namespace brasquelin
