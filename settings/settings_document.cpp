#include "settings/settings_document.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <numeric>
#include <optional>
#include <utility>

#include "settings/byte_scan.h"

namespace rotavel {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

SettingsBytes MakeBlock(std::size_t length) {
    return {std::make_unique_for_overwrite<char[]>(length + SettingsTextPadding), length};
}

SettingsBytes FromLatin1(SettingsBytes content) {
    const std::size_t length = Utf8LengthOfLatin1(content.Block.get(), content.Length);
    if (length > LargestSettingsText) {
        throw std::bad_alloc();
    }
    if (length == content.Length) {
        return content;
    }
    SettingsBytes converted = MakeBlock(length);
    Latin1ToUtf8(content.Block.get(), content.Length, converted.Block.get());
    return converted;
}

}  // namespace

std::uint64_t FingerprintOf(std::string_view content) {
    // Four chains of bijective steps side by side: a change within eight bytes always shows, and
    // the processor works on all four at once.
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;  // 2^64 divided by the golden ratio
    std::array<std::uint64_t, 4> lanes = {content.size(), 1, 2, 3};
    const auto mix = [&](const char* bytes) {
        for (std::uint64_t& lane : lanes) {
            lane = (lane ^ byte_scan::LoadWord(bytes)) * factor;
            lane ^= lane >> 32;
            bytes += sizeof lane;
        }
    };
    while (content.size() >= sizeof lanes) {
        mix(content.data());
        content.remove_prefix(sizeof lanes);
    }
    char tail[sizeof lanes] = {};
    content.copy(tail, content.size());
    mix(tail);
    return std::accumulate(
        lanes.begin(), lanes.end(), std::uint64_t{0},
        [](std::uint64_t sum, std::uint64_t lane) { return (sum ^ lane) * factor; });
}

int ReadSettingsFile(RawFile& file, SettingsBytes& content) {
    const std::optional<std::uint64_t> size = file.Size();
    if (!size) {
        return file.Error();
    }
    if (*size > LargestSettingsText) {
        return EFBIG;
    }
    SettingsBytes read = MakeBlock(static_cast<std::size_t>(*size));
    const std::optional<std::size_t> got = file.Read(read.Block.get(), read.Length);
    if (!got) {
        return file.Error();
    }
    read.Length = *got;
    content = std::move(read);
    return 0;
}

void ParseSettingsFile(SettingsBytes content, SettingsDocument& document) {
    document.Fingerprint = FingerprintOf(content.View());
    if (content.Length == 0) {
        return;
    }
    document.Encoding = SettingsEncoding::Utf8;
    const bool isMarked = content.View().starts_with(Utf8Mark);
    SettingsBytes utf8 = isMarked ? std::move(content) : FromLatin1(std::move(content));
    const std::size_t start = isMarked ? Utf8Mark.size() : 0;
    char* const text = utf8.Block.get() + start;
    document.Entries.AdoptText(std::move(utf8.Block));
    ParseSettingsText(text, utf8.Length - start, document.Entries);
}

void MergeSettings(const SettingsDocument& written, std::string_view content,
                   SettingsDocument& merged) {
    SettingsBytes copy = MakeBlock(content.size());
    std::copy(content.begin(), content.end(), copy.Block.get());
    ParseSettingsFile(std::move(copy), merged);
    merged.Entries.RepeatWrites(written.Entries);
}

}  // namespace rotavel
