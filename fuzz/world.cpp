#include "fuzz/world.h"

#include <cstdio>
#include <cstdlib>

#include "text/runTimeError.h"
#include "text/text.h"
#include "vars/typeSpec.h"

namespace brasquelin {

World::World() {
    writeSayLibrary("say.bqs");
    write("Brasquelin.ini", "[config]\r\nBasicFunctionPath = \\list.ini\r\n[/config]\r\n");
}

bool allowed(const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const RunTimeError&) {
    } catch (const ParseError&) {
    } catch (const EndProgram&) {
    }
    return false;
}

std::vector<std::string> pieces(std::string_view input, std::size_t count) {
    constexpr std::string_view separator = "\n====\n";
    std::vector<std::string> texts;
    while (texts.size() + 1 < count) {
        const auto end = input.find(separator);
        texts.emplace_back(input.substr(0, end));
        input = end == std::string_view::npos ? std::string_view() : input.substr(end + separator.size());
    }
    texts.emplace_back(input);
    return texts;
}

void require(bool promise, std::string_view what) {
    if (promise) return;
    std::fprintf(stderr, "broken: %s\n", std::string(what).c_str());
    std::abort();
}

}  // namespace brasquelin
