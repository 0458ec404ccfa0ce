// The interpreter's tables, by nesting level, and its counters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/onlooker.h"
#include "text/table.h"

namespace brasquelin {

struct Callable {
    std::string path;
    std::string name;
};

/// A plugin or a check: the program and its name (file name without its last four characters).
struct Program {
    std::string path;
    std::string name;
};

struct LoopRecord {
    std::string variable;
    int start = 0;
    int end = 0;
    int step = 0;
    int current = 0;          // wider than 16 bits, so that an end of 32767 simply ends
    std::string currentText;  // `current` in decimal
    std::size_t bodyLine = 0;
};

/// The loops of one level.
struct Loops {
    static constexpr std::size_t depthLimit = 255;

    std::size_t depth = 0;            // loops open now
    long started = 0;                 // never lowered
    std::vector<LoopRecord> records;  // outermost first; behind the open ones, those of ended loops keep their values
};

struct EngineTables {
    PerLevel<Table<Callable>> callables;
    PerLevel<Table<Program>> plugins;
    PerLevel<Table<Program>> checks;
    PerLevel<Table<NamedValue>> checkResults;
    PerLevel<Loops> loops;
    std::vector<SourceLine> fileStack;  // what is being interpreted, innermost last
    std::string runCounter = "0";       // decimal text

    void reset();
};
extern EngineTables engineTables;

/// The path of the callable with this name in any letter case at this level; empty when there is none.
const std::string& lookupCallable(std::string_view name, int level);

}  // namespace brasquelin
