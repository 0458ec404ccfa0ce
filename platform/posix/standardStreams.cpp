#include "platform/standardStreams.h"

#include <unistd.h>

#include <cstdio>

namespace brasquelin {

bool writeTo(StandardStream stream, std::string_view text) {
    std::FILE* file = stream == StandardStream::output ? stdout : stderr;
    return std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0;
}

bool writeBytes(StandardStream stream, std::string_view bytes) {
    return writeTo(stream, bytes);
}

bool isTerminal(StandardStream stream) {
    return isatty(stream == StandardStream::output ? STDOUT_FILENO : STDERR_FILENO) != 0;
}

void print(StandardStream stream, std::string_view text) {
    writeTo(stream, text);
}

}  // namespace brasquelin
