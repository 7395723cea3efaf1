// The motorcycles of any settings file: each of its groups is one, in its place.

#include "app/motorcycle_records.h"
#include "fuzz.h"

namespace rotavel::tests {
namespace {

std::u16string Trimmed(std::u16string text) {
    text.erase(0, text.find_first_not_of(u' '));
    text.erase(text.find_last_not_of(u' ') + 1);
    return text;
}

void Run(const std::string& content) {
    WriteFile(SettingsFile(), content);
    Check(SettingsOpen(ToUtf16(SettingsFile()), 0));
    std::vector<MakerRecord> makers = ReadMotorcycles();
    SettingsClose();

    std::vector<std::size_t> taken;  // models of each maker
    std::int64_t item = 10;
    const std::vector<Group> groups = GroupsOf(content);
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
        const auto rpm = std::ranges::find(groups[i].Lines, "MaxRPM", &Group::Line::Key);
        Check(rpm == groups[i].Lines.end() || motorcycle.MaxRPM == Integer(rpm->Value));
    }
    Check(taken.size() == makers.size() && !FindMotorcycle(makers, item + 1));
}

}  // namespace
}  // namespace rotavel::tests

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    rotavel::tests::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
