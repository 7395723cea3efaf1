#include "app/motorcycles.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string_view>
#include <unistd.h>

#include "app/default_settings.h"
#include "settings/settings_store.h"

namespace rotavel {
namespace {

std::vector<MakerRecord> ReadFrom(std::string_view settings) {
    const std::filesystem::path path =
        testing::TempDir() + "motorcycles_" + std::to_string(getpid()) + ".ini";
    std::ofstream(path, std::ios::binary) << settings;
    EXPECT_TRUE(SettingsOpenDefault(path.u16string()));
    std::vector<MakerRecord> makers = ReadMotorcycles();
    SettingsClose();
    std::filesystem::remove(path);
    return makers;
}

TEST(Motorcycles, DefaultFileIsReadBack) {
    const std::vector<MakerRecord> makers = ReadFrom(DefaultSettingsText);

    ASSERT_EQ(makers.size(), 4U);
    const std::size_t models[] = {39, 1, 2, 17};
    int withoutSixthGear = 0;
    for (std::size_t i = 0; i < makers.size(); ++i) {
        EXPECT_EQ(makers[i].Models.size(), models[i]);
        for (const MotorcycleRecord& motorcycle : makers[i].Models) {
            withoutSixthGear += motorcycle.GearRatio[5] == 0.0 ? 1 : 0;
        }
    }
    EXPECT_EQ(withoutSixthGear, 13 + 5);  // empty, "0.0000"

    EXPECT_EQ(makers[3].Name, u"MV Agusta");
    EXPECT_EQ(makers[3].Models[4].Model, u"Brutale 920");
    const MotorcycleRecord& v35 = makers[0].Models[33];
    EXPECT_EQ(v35.Model, u"V35");
    EXPECT_EQ(v35.PrimaryRatio, 1.846);
    EXPECT_EQ(v35.FinalDriveRatio, 3.875);
    EXPECT_EQ(v35.GearRatio, (std::array{2.727, 1.733, 1.277, 1.045, 0.909, 0.0}));
    EXPECT_EQ(v35.RearWheelWidth, 3.25);
    EXPECT_EQ(v35.RearWheelPercentHeight, 0);
    EXPECT_EQ(v35.RearWheelDiameter, 18);
    EXPECT_EQ(v35.MaxRPM, 8000);
}

TEST(Motorcycles, MakersStandInOrderOfFirstAppearance) {
    std::vector<MakerRecord> makers = ReadFrom(
        "Key = 1\r\n[B - one]\r\nMaxRPM = x\r\n[Settings]\r\n[a-b-c]\r\n[settings]\r\n"
        "[ B-two ]\r\n[lone ]\r\n[b - three]\r\n[B - one]\r\nMaxRPM = 7\r\n");

    std::u16string found;
    for (const MakerRecord& maker : makers) {
        found += maker.Name + u":";
        for (const MotorcycleRecord& motorcycle : maker.Models) {
            found += motorcycle.Model + u",";
        }
    }
    ASSERT_EQ(found, u"B:one,two,one,a:b-c,:settings,lone,b:three,");
    EXPECT_EQ(makers[0].Models[0].MaxRPM, 0);
    EXPECT_EQ(makers[0].Models[2].MaxRPM, 7);

    makers[1].Models[0].MenuItem = 12;
    makers[2].Models[1].MenuItem = 12;
    const auto choice = FindMotorcycle(makers, 12);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->Maker, &makers[1]);
    EXPECT_EQ(choice->Motorcycle, &makers[1].Models[0]);
    EXPECT_FALSE(FindMotorcycle(makers, 13));
}

}  // namespace
}  // namespace rotavel
