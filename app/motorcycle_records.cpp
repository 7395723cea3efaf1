#include "app/motorcycle_records.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string_view>

#include "app/settings_keys.h"
#include "settings/settings_store.h"
#include "text/text.h"

namespace rotavel {

namespace {

struct GroupTitle {
    std::u16string_view Maker;
    std::u16string_view Model;
};

// Only the first "-" parts them: a model may have its own.
GroupTitle SplitGroupName(std::u16string_view name) {
    const std::size_t dash = name.find(u'-');
    if (dash == std::u16string_view::npos) {
        return {.Maker = {}, .Model = TrimBlanks(name)};
    }
    return {.Maker = TrimBlanks(name.substr(0, dash)), .Model = TrimBlanks(name.substr(dash + 1))};
}

MotorcycleRecord ReadMotorcycle(std::u16string_view model) {
    MotorcycleRecord motorcycle;
    motorcycle.Model = model;
    motorcycle.PrimaryRatio = SettingsReadNumber(PrimaryRatioKey, 0.0);
    motorcycle.FinalDriveRatio = SettingsReadNumber(FinalDriveRatioKey, 0.0);
    for (std::size_t gear = 0; gear < GearRatioKeys.size(); ++gear) {
        motorcycle.GearRatio[gear] = SettingsReadNumber(GearRatioKeys[gear], 0.0);
    }
    motorcycle.RearWheelWidth = SettingsReadNumber(RearWheelWidthKey, 0.0);
    motorcycle.RearWheelPercentHeight = SettingsReadInteger(RearWheelPercentHeightKey, 0);
    motorcycle.RearWheelDiameter = SettingsReadInteger(RearWheelDiameterKey, 0);
    motorcycle.MaxRPM = SettingsReadInteger(MaxRpmKey, 0);
    return motorcycle;
}

}  // namespace

std::vector<MakerRecord> ReadMotorcycles() {
    std::vector<MakerRecord> makers;
    std::map<std::u16string, std::size_t, std::less<>> placeOfMaker;

    SettingsRewindGroups();
    while (SettingsNextGroup()) {
        const std::u16string name = SettingsGroupName();
        if (name == LastValuesGroup) {
            continue;
        }
        const GroupTitle title = SplitGroupName(name);
        auto place = placeOfMaker.find(title.Maker);
        if (place == placeOfMaker.end()) {
            place = placeOfMaker.emplace(title.Maker, makers.size()).first;
            makers.push_back({.Name = std::u16string(title.Maker), .Models = {}});
        }
        makers[place->second].Models.push_back(ReadMotorcycle(title.Model));
    }
    return makers;
}

std::optional<MotorcycleChoice> FindMotorcycle(const std::vector<MakerRecord>& makers,
                                               std::int64_t menuItem) {
    for (const MakerRecord& maker : makers) {
        for (const MotorcycleRecord& motorcycle : maker.Models) {
            if (motorcycle.MenuItem == menuItem) {
                return MotorcycleChoice{.Maker = &maker, .Motorcycle = &motorcycle};
            }
        }
    }
    return std::nullopt;
}

}  // namespace rotavel
