#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/settings_document.h"
#include "settings/settings_store.h"
#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel::tests {

inline void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

// A group of a settings file with its lines: keys with their values, comments without a key.
struct Group {
    struct Line {
        std::optional<std::string> Key;
        std::string Value;
        bool operator==(const Line&) const = default;
    };
    std::string Name;
    std::vector<Line> Lines;
    bool operator==(const Group&) const = default;
};

// What a file holds; the first group is what stands before all groups.
inline std::vector<Group> GroupsOf(std::string_view content) {
    SettingsBytes bytes = {std::make_unique<char[]>(content.size() + SettingsTextPadding),
                           content.size()};
    std::ranges::copy(content, bytes.Block.get());
    SettingsDocument document;
    ParseSettingsFile(std::move(bytes), document);
    std::vector<Group> groups(1);
    for (const SettingsEntry* each = document.Entries.First(); each != nullptr;
         each = each->Next()) {
        const std::string value(each->Value());
        if (each->IsGroup()) {
            groups.push_back({value, {}});
        } else {
            groups.back().Lines.push_back(
                {each->IsKey() ? std::optional(std::string(each->Key())) : std::nullopt, value});
        }
    }
    return groups;
}

inline const std::string& SettingsFile() {
    static const TemporaryFolder folder;
    static const std::string file = folder.File("Rotavel.ini");
    return file;
}

// As the C library scans it.
inline std::int64_t Integer(const std::string& text) {
    long long value = 0;
    return std::sscanf(text.c_str(), "%lld", &value) == 1 ? value : 0;
}

}  // namespace rotavel::tests
