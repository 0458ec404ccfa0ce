// For unordered tables of texts that are looked up by a view.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace brasquelin {

/// Eight bytes at a time: paths are looked up several times for each job.
struct TextHash {
    using is_transparent = void;

    std::size_t operator()(std::string_view text) const {
        constexpr std::size_t step = sizeof(std::uint64_t);
        std::uint64_t hash = text.size();
        if (text.size() < step) {
            return static_cast<std::size_t>(mixed(hash, text.empty() ? 0 : wordAt(text.data(), text.size())));
        }
        const char* const last = text.data() + text.size() - step;
        for (const char* at = text.data(); at < last; at += step) hash = mixed(hash, wordAt(at, step));
        return static_cast<std::size_t>(mixed(hash, wordAt(last, step)));
    }

  private:
    static std::uint64_t wordAt(const char* begin, std::size_t size) {
        std::uint64_t word = 0;
        std::memcpy(&word, begin, size);
        return word;
    }
    static std::uint64_t mixed(std::uint64_t hash, std::uint64_t word) {
        constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
        constexpr unsigned half = 32;
        const std::uint64_t product = (hash ^ word) * factor;
        return product ^ (product >> half);
    }
};

}  // namespace brasquelin
