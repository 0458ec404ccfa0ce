// What is fuzzed: one procedure for each kind of text that comes from outside.
#pragma once

#include <string_view>
#include <vector>

namespace brasquelin {

/// Works through one input. What it raises but must not ends the process, as a promise that is broken does.
struct FuzzTarget {
    std::string_view name;
    void (*run)(std::string_view input);
};

const std::vector<FuzzTarget>& fuzzTargets();

}  // namespace brasquelin
