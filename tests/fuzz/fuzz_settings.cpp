// Any file is opened, read, changed and rewritten, and must then hold what it held, and the
// changes. Each of its groups is a motorcycle, in its place.

#include <cstdio>
#include <string_view>
#include <strings.h>
#include <vector>

#include "app/motorcycle_records.h"
#include "fuzz.h"
#include "settings/settings_document.h"
#include "settings/settings_store.h"
#include "tests/support/temporary_folder.h"
#include "text/text.h"

namespace rotavel::tests {
namespace {

// A line of a settings file: a group's name, a key with its value or a comment.
struct Line {
    char Kind;  // '[', '=' or ';'
    std::string Key;
    std::string Value;
    bool operator==(const Line&) const = default;
};
using Lines = std::vector<Line>;

// What a file holds. The first line is a group without a name, for what stands before all groups.
Lines LinesOf(std::string_view content) {
    SettingsBytes bytes = {std::make_unique<char[]>(content.size() + SettingsTextPadding),
                           content.size()};
    std::ranges::copy(content, bytes.Block.get());
    SettingsDocument document;
    ParseSettingsFile(std::move(bytes), document);
    Lines lines = {{'[', "", ""}};
    for (const SettingsEntry* each = document.Entries.First(); each != nullptr;
         each = each->Next()) {
        const char kind = each->IsGroup() ? '[' : each->IsKey() ? '=' : ';';
        lines.push_back({kind, std::string(each->Key()), std::string(each->Value())});
    }
    return lines;
}

const TemporaryFolder Folder;
const std::string SettingsFile = Folder.File("Rotavel.ini");

// As the C library scans it.
std::int64_t Integer(const std::string& text) {
    long long value = 0;
    return std::sscanf(text.c_str(), "%lld", &value) == 1 ? value : 0;
}

bool IsSame(const std::string& left, const std::string& right) {
    return std::ranges::equal(left, right,
                              [](char a, char b) { return strncasecmp(&a, &b, 1) == 0; });
}

std::string WithoutBlanks(const std::string& value) {
    return value.substr(std::min(value.find_first_not_of(" \t"), value.size()));
}

// The line of a key in the group that starts at a line, or else where the group ends.
Lines::iterator FindKey(Lines& lines, Lines::iterator group, const std::string& key) {
    return std::find_if(group + 1, lines.end(), [&key](const Line& each) {
        return each.Kind == '[' || (each.Kind == '=' && IsSame(each.Key, key));
    });
}

void CheckMotorcycles(Lines& lines, const std::vector<MakerRecord>& makers) {
    std::vector<MakerRecord> expected;
    for (auto group = lines.begin() + 1; group != lines.end(); ++group) {
        const std::u16string name = ToUtf16(group->Value);
        if (group->Kind != '[' || name == u"Settings") {
            continue;
        }
        const std::size_t dash = name.find(u'-');
        const std::u16string of(TrimBlanks(name.substr(0, dash == name.npos ? 0 : dash)));
        auto maker = std::ranges::find(expected, of, &MakerRecord::Name);
        if (maker == expected.end()) {
            maker = expected.insert(maker, {of, {}});
        }
        MotorcycleRecord& motorcycle = maker->Models.emplace_back();
        motorcycle.Model = TrimBlanks(name.substr(dash + 1));  // npos + 1 is 0
        const auto rpm = FindKey(lines, group, "MaxRPM");
        motorcycle.MaxRPM = rpm != lines.end() && rpm->Kind == '=' ? Integer(rpm->Value) : 0;
    }
    const auto isSame = [](const MotorcycleRecord& left, const MotorcycleRecord& right) {
        return left.Model == right.Model && left.MaxRPM == right.MaxRPM;
    };
    Check(std::ranges::equal(expected, makers, [&](const auto& left, const auto& right) {
        return left.Name == right.Name && std::ranges::equal(left.Models, right.Models, isSame);
    }));
}

void CheckReads(Lines lines) {
    Check(SettingsOpen(ToUtf16(SettingsFile), 0));
    auto group = lines.begin();
    for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
        const std::u16string key = ToUtf16(line->Key);
        if (line->Kind == '[') {
            Check(SettingsNextGroup() && SettingsGroupName() == ToUtf16(line->Value));
            group = line;
        } else if (line->Kind == '=' && ToUtf8(key) == line->Key) {  // or it cannot be asked for
            const std::string& value = FindKey(lines, group, line->Key)->Value;
            Check(SettingsReadString(key, u"?") == ToUtf16(WithoutBlanks(value)));
            Check(SettingsReadInteger(key, -7) == Integer(value));
        }
    }
    Check(!SettingsNextGroup());
    CheckMotorcycles(lines, ReadMotorcycles());
    SettingsClose();
}

std::string LineText(FuzzedDataProvider& input) {
    std::string text = input.ConsumeRandomLengthString(20);
    std::erase_if(text, [](char each) { return each == '\r' || each == '\n' || each == ']'; });
    return text;
}

// Writes into a group and key of the file, or new ones.
void ChangeSomething(FuzzedDataProvider& input, Lines& lines) {
    const auto line = lines.begin() + input.ConsumeIntegral<std::uint8_t>() % lines.size();
    auto group = line;
    while (group->Kind != '[') {
        --group;
    }
    const std::u16string name = ToUtf16(input.ConsumeBool() ? LineText(input) : group->Value);
    const std::u16string key = ToUtf16(line->Kind == '=' ? line->Key : "MAXrpm");
    const std::u16string value = ToUtf16(LineText(input));
    const Line written = {'=', ToUtf8(key), WithoutBlanks(ToUtf8(value))};
    SettingsSelectGroup(name);
    Check(SettingsWriteString(key, value));
    Check(SettingsReadString(key, u"?") == ToUtf16(written.Value));
    group = std::ranges::find_if(lines, [&](const Line& each) {
        return each.Kind == '[' && IsSame(each.Value, ToUtf8(name));
    });
    if (group == lines.end()) {
        group = lines.insert(group, {'[', "", ToUtf8(name)});
    }
    if (const auto old = FindKey(lines, group, written.Key);
        old != lines.end() && old->Kind == '=') {
        *old = written;
    } else {
        lines.insert(old, written);
    }
}

void Run(FuzzedDataProvider input) {
    const auto flags = input.ConsumeIntegral<std::uint32_t>();
    const std::string content = input.ConsumeRandomLengthString();
    WriteFile(SettingsFile, content);
    Lines lines = LinesOf(content);
    CheckReads(lines);
    Check(ReadFile(SettingsFile) == content);
    // Without a mark, as an empty file is rewritten, nothing but ASCII lasts.
    if (content.empty() || !SettingsOpen(ToUtf16(SettingsFile), flags)) {
        return;
    }
    for (int changes = input.ConsumeIntegralInRange(0, 3); changes > 0; --changes) {
        ChangeSomething(input, lines);
    }
    SettingsClose();
    Check(SettingsSaveError() == 0 && LinesOf(ReadFile(SettingsFile)) == lines);
    CheckReads(lines);
}

}  // namespace
}  // namespace rotavel::tests

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    rotavel::tests::Run({data, size});
    return 0;
}
