#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace rotavel {

// Byte searches for short distances, eight bytes at a time: lines and keys end within the first few
// steps, where a call of memchr costs more than its search, and it looks for one byte only.

namespace byte_scan {

// Every byte of the result is `byte`.
constexpr std::uint64_t Repeat(unsigned char byte) {
    return byte * std::uint64_t{0x0101010101010101};
}

// The top bit of each byte is set where `word` has a zero byte. Bytes above the lowest such byte
// may be marked wrongly.
constexpr std::uint64_t MarkZeroBytes(std::uint64_t word) {
    return (word - Repeat(0x01)) & ~word & Repeat(0x80);
}

// Eight bytes, the first one lowest.
inline std::uint64_t LoadWord(const char* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    if constexpr (std::endian::native == std::endian::big) {
        word = __builtin_bswap64(word);
    }
    return word;
}

}  // namespace byte_scan

// The bytes that must be readable behind the end of a searched text.
inline constexpr std::size_t ByteScanPadding = sizeof(std::uint64_t) - 1;

// The first of the bytes Stops from `position` on, or `end`.
template <char... Stops>
char* FindAny(char* position, char* end) {
    using namespace byte_scan;
    while (position < end) {
        const std::uint64_t word = LoadWord(position);
        const std::uint64_t marks =
            (MarkZeroBytes(word ^ Repeat(static_cast<unsigned char>(Stops))) | ...);
        if (marks != 0) {
            return std::min(position + std::countr_zero(marks) / 8, end);
        }
        position += sizeof word;
    }
    return end;
}

}  // namespace rotavel
