#include "settings/settings_text.h"

#include <algorithm>
#include <string_view>

#include "settings/settings_flags.h"

namespace rotavel {

namespace {

constexpr std::string_view MarkLine = "\xEF\xBB\xBF\n";

bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

bool IsLineEnd(char character) {
    return character == '\r' || character == '\n';
}

char* FindLineEnd(char* position, char* end) {
    return FindAny<'\r', '\n'>(position, end);
}

// These need no end: the zero byte behind the text stops them.

char* SkipBlanks(char* position) {
    while (IsBlank(*position)) {
        ++position;
    }
    return position;
}

char* SkipLineEnds(char* position) {
    while (IsLineEnd(*position)) {
        ++position;
    }
    return position;
}

// Each Parse function appends the entry that starts at `position`, ends its pieces with zero bytes
// and returns where its line ended.

char* ParseGroup(char* position, char* end, SettingsEntries& entries) {
    char* const name = position + 1;
    char* const nameEnd = FindAny<']', '\r', '\n'>(name, end);
    char* const lineEnd = FindLineEnd(nameEnd, end);
    *nameEnd = '\0';
    entries.AppendFromText(SettingsEntryKind::Group, nullptr, 0, name,
                           static_cast<std::size_t>(nameEnd - name));
    return lineEnd;
}

char* ParseComment(char* position, char* end, SettingsEntries& entries) {
    char* const comment = position + (position[1] == ' ' ? 2 : 1);
    char* const lineEnd = FindLineEnd(comment, end);
    *lineEnd = '\0';
    entries.AppendFromText(SettingsEntryKind::Comment, nullptr, 0, comment,
                           static_cast<std::size_t>(lineEnd - comment));
    return lineEnd;
}

char* ParseKey(char* position, char* end, SettingsEntries& entries) {
    char* lineEnd = FindLineEnd(position, end);
    char* const separator = FindAny<'='>(position, lineEnd);
    char* keyEnd = separator;
    while (keyEnd > position && IsBlank(keyEnd[-1])) {
        --keyEnd;
    }
    char* const value = SkipBlanks(std::min(separator + 1, end));
    if (separator == lineEnd) {
        // Without "=" the first character of the line end stands in for it, which makes the line
        // after a lone LF or CR the value.
        lineEnd = FindLineEnd(value, end);
    }
    *keyEnd = '\0';
    *lineEnd = '\0';
    entries.AppendFromText(SettingsEntryKind::Key, position,
                           static_cast<std::size_t>(keyEnd - position), value,
                           static_cast<std::size_t>(lineEnd - value));
    return lineEnd;
}

// The bytes from 0x80 on among at most 255. The sum is as narrow as the bytes, so that the loop
// adds vectors of them.
unsigned char CountHighBytes(const char* bytes, std::size_t length) {
    unsigned char count = 0;
    for (std::size_t i = 0; i < length; ++i) {
        count = static_cast<unsigned char>(count + (static_cast<unsigned char>(bytes[i]) >> 7));
    }
    return count;
}

// What an entry's line can need besides its texts: "; " and a line end, brackets, an empty line
// before and a line end, or " = " and a line end.
constexpr std::size_t MostDecoration = 4;

std::size_t ComposedSize(const SettingsEntries& entries) {
    std::size_t size = MarkLine.size();
    for (const SettingsEntry* entry = entries.First(); entry != nullptr; entry = entry->Next()) {
        size += entry->Key().size() + entry->Value().size() + MostDecoration;
    }
    return size;
}

char* Put(char* position, std::string_view bytes) {
    return std::copy(bytes.begin(), bytes.end(), position);
}

}  // namespace

std::size_t Utf8LengthOfLatin1(const char* bytes, std::size_t length) {
    constexpr std::size_t blockSize = 128;  // what CountHighBytes can count
    std::size_t highBytes = 0;
    for (std::size_t start = 0; start < length; start += blockSize) {
        highBytes += CountHighBytes(bytes + start, std::min(blockSize, length - start));
    }
    return length + highBytes;
}

void Latin1ToUtf8(const char* bytes, std::size_t length, char* target) {
    using namespace byte_scan;
    const char* const end = bytes + length;
    while (bytes < end) {
        // Accented letters are few: eight bytes at a time while there are none.
        if (end - bytes >= 8 && (LoadWord(bytes) & Repeat(0x80)) == 0) {
            target = std::copy_n(bytes, 8, target);
            bytes += 8;
            continue;
        }
        const auto byte = static_cast<unsigned char>(*bytes++);
        if (byte < 0x80) {
            *target++ = static_cast<char>(byte);
        } else {
            *target++ = static_cast<char>(0xC0 | byte >> 6);
            *target++ = static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
}

void ParseSettingsText(char* text, std::size_t length, SettingsEntries& entries) {
    char* const end = text + length;
    std::fill_n(end, SettingsTextPadding, '\0');
    char* position = text;
    while (position < end) {
        position = SkipBlanks(position);
        if (!IsLineEnd(*position)) {
            position = *position == '['   ? ParseGroup(position, end, entries)
                       : *position == ';' ? ParseComment(position, end, entries)
                                          : ParseKey(position, end, entries);
        }
        // On behind the line end's first character, which may have become a zero byte.
        position = SkipLineEnds(std::min(position + 1, end));
    }
}

SettingsBytes ComposeSettingsText(const SettingsEntries& entries, SettingsEncoding encoding,
                                  std::uint32_t flags) {
    SettingsBytes result;
    result.Block = std::make_unique_for_overwrite<char[]>(ComposedSize(entries));
    const std::string_view separator = (flags & CompactSeparator) != 0 ? "=" : " = ";
    const std::string_view groupStart = (flags & GroupSpacing) != 0 ? "\n[" : "[";
    bool isFirstGroup = true;
    char* position = result.Block.get();
    if (encoding == SettingsEncoding::Utf8) {
        position = Put(position, MarkLine);
    }
    for (const SettingsEntry* entry = entries.First(); entry != nullptr; entry = entry->Next()) {
        if (entry->IsComment()) {
            position = Put(position, "; ");
            position = Put(position, entry->Value());
        } else if (entry->IsGroup()) {
            position = Put(position, isFirstGroup ? "[" : groupStart);
            position = Put(position, entry->Value());
            *position++ = ']';
            isFirstGroup = false;
        } else {
            position = Put(position, entry->Key());
            position = Put(position, separator);
            position = Put(position, entry->Value());
        }
        *position++ = '\n';
    }
    result.Length = static_cast<std::size_t>(position - result.Block.get());
    return result;
}

}  // namespace rotavel
