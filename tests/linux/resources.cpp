#include "support/resources.h"

#include <malloc.h>

#include <filesystem>
#include <iterator>

namespace brasquelin {

const int manyTimes = 10000;
const int manyProcesses = 100;

std::size_t openHandles() {
    const std::filesystem::directory_iterator open("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(open), end(open)));
}

std::size_t allocatedBytes() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

}  // namespace brasquelin
