// Any file is opened, read, changed and rewritten, and must then hold what it held, and the
// changes. Each of its groups is a motorcycle, in its place.

#include <cstdio>
#include <optional>
#include <string_view>
#include <strings.h>
#include <vector>

#include "app/motorcycle_records.h"
#include "fuzz.h"
#include "settings/settings_document.h"
#include "settings/settings_store.h"
#include "tests/support/temporary_folder.h"

namespace rotavel::tests {
namespace {

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
std::vector<Group> GroupsOf(std::string_view content) {
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

const std::string& SettingsFile() {
    static const TemporaryFolder folder;
    static const std::string file = folder.File("Rotavel.ini");
    return file;
}

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

Group::Line* FindKey(Group& group, const std::string& key) {
    const auto line = std::ranges::find_if(
        group.Lines, [&](const auto& each) { return each.Key && IsSame(*each.Key, key); });
    return line == group.Lines.end() ? nullptr : &*line;
}

// Adds the group when there is none of that name.
Group& GroupNamed(std::vector<Group>& groups, const std::string& name) {
    for (Group& each : groups) {
        if (IsSame(each.Name, name)) {  // the empty name is the first group's
            return each;
        }
    }
    return groups.emplace_back(Group{name, {}});
}

std::u16string Trimmed(std::u16string text) {
    text.erase(0, text.find_first_not_of(u' '));
    text.erase(text.find_last_not_of(u' ') + 1);
    return text;
}

void CheckMotorcycles(std::vector<Group>& groups, std::vector<MakerRecord> makers) {
    std::vector<std::size_t> taken;  // models of each maker
    std::int64_t item = 10;
    for (std::size_t i = 1; i < groups.size(); ++i) {
        const std::u16string name = ToUtf16(groups[i].Name);
        if (name == u"Settings") {
            continue;
        }
        const std::size_t dash = name.find(u'-');
        const std::u16string of = dash == name.npos ? u"" : Trimmed(name.substr(0, dash));
        const auto maker = std::ranges::find(makers, of, &MakerRecord::Name);
        const auto place = static_cast<std::size_t>(maker - makers.begin());
        Check(place <= taken.size() && place < makers.size());
        taken.resize(std::max(taken.size(), place + 1));
        Check(taken[place] < maker->Models.size());
        MotorcycleRecord& motorcycle = maker->Models[taken[place]++];
        Check(motorcycle.Model == Trimmed(dash == name.npos ? name : name.substr(dash + 1)));
        motorcycle.MenuItem = ++item;
        Check(FindMotorcycle(makers, item)->Motorcycle == &motorcycle);
        const Group::Line* const rpm = FindKey(groups[i], "MaxRPM");
        Check(rpm == nullptr || motorcycle.MaxRPM == Integer(rpm->Value));
    }
    Check(taken.size() == makers.size() && !FindMotorcycle(makers, item + 1));
}

void CheckReads(std::vector<Group> groups) {
    Check(SettingsOpen(ToUtf16(SettingsFile()), 0));
    for (std::size_t i = 1; i < groups.size(); ++i) {
        Check(SettingsNextGroup() && SettingsGroupName() == ToUtf16(groups[i].Name));
        for (const Group::Line& line : groups[i].Lines) {
            // What cannot be said in UTF-16 cannot be asked for.
            const std::u16string key = ToUtf16(line.Key.value_or(""));
            if (line.Key && ToUtf8(key) == *line.Key) {
                const std::string& value = FindKey(groups[i], *line.Key)->Value;
                Check(SettingsReadString(key, u"?") == ToUtf16(WithoutBlanks(value)));
                Check(SettingsReadInteger(key, -7) == Integer(value));
            }
        }
    }
    Check(!SettingsNextGroup());
    CheckMotorcycles(groups, ReadMotorcycles());
    SettingsClose();
}

std::string LineText(FuzzedDataProvider& input) {
    std::string text = input.ConsumeRandomLengthString(20);
    std::erase_if(text, [](char each) { return each == '\r' || each == '\n' || each == ']'; });
    return ToUtf8(ToUtf16(text));
}

// Into a group and key of the file, or new ones.
void ChangeSomething(FuzzedDataProvider& input, std::vector<Group>& groups) {
    const std::string name =
        input.ConsumeBool() ? LineText(input)
                            : groups[input.ConsumeIntegral<std::uint8_t>() % groups.size()].Name;
    SettingsSelectGroup(ToUtf16(name));
    Group& group = GroupNamed(groups, ToUtf8(ToUtf16(name)));
    std::string key = "MAXrpm";
    if (!group.Lines.empty()) {
        const auto& line = group.Lines[input.ConsumeIntegral<std::uint8_t>() % group.Lines.size()];
        key = ToUtf8(ToUtf16(line.Key.value_or(key)));
    }
    const std::string value = LineText(input);
    Check(SettingsWriteString(ToUtf16(key), ToUtf16(value)));
    Check(SettingsReadString(ToUtf16(key), u"?") == ToUtf16(WithoutBlanks(value)));
    if (Group::Line* const line = FindKey(group, key)) {
        *line = {key, WithoutBlanks(value)};
    } else {
        group.Lines.push_back({key, WithoutBlanks(value)});
    }
}

void Run(FuzzedDataProvider input) {
    const auto flags = input.ConsumeIntegral<std::uint32_t>();
    const std::string content = input.ConsumeRandomLengthString();
    WriteFile(SettingsFile(), content);
    std::vector<Group> groups = GroupsOf(content);
    CheckReads(groups);
    Check(ReadFile(SettingsFile()) == content);
    // Without a mark, as an empty file is rewritten, nothing but ASCII lasts.
    if (content.empty() || !SettingsOpen(ToUtf16(SettingsFile()), flags)) {
        return;
    }
    for (int changes = input.ConsumeIntegralInRange(0, 3); changes > 0; --changes) {
        ChangeSomething(input, groups);
    }
    SettingsClose();
    Check(SettingsSaveError() == 0 && GroupsOf(ReadFile(SettingsFile())) == groups);
    CheckReads(groups);
}

}  // namespace
}  // namespace rotavel::tests

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    rotavel::tests::Run({data, size});
    return 0;
}
