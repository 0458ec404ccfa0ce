#include "platform/standardStreams.h"

#include <cstdio>

namespace brasquelin {

void print(StandardStream stream, std::string_view text) {
    std::FILE* file = stream == StandardStream::output ? stdout : stderr;
    std::fwrite(text.data(), 1, text.size(), file);
    std::fflush(file);
}

}  // namespace brasquelin
