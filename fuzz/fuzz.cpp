// The entry points of libFuzzer. BRASQUELIN_FUZZ_TARGET names the target; "?" prints the names and ends.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz/targets.h"

namespace {

const brasquelin::FuzzTarget* target = nullptr;

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the name is given
extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
    const char* wanted = std::getenv("BRASQUELIN_FUZZ_TARGET");
    const std::string_view name = wanted == nullptr ? "" : wanted;
    for (const auto& known : brasquelin::fuzzTargets()) {
        if (name == "?") std::printf("%s\n", std::string(known.name).c_str());
        if (name == known.name) target = &known;
    }
    if (target != nullptr) return 0;
    if (name != "?") std::fprintf(stderr, "BRASQUELIN_FUZZ_TARGET names no target\n");
    std::exit(name == "?" ? 0 : 2);
}

// NOLINTNEXTLINE(readability-identifier-naming): the name is given
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    target->run({reinterpret_cast<const char*>(data), size});
    return 0;
}
