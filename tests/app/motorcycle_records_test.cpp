#include "app/motorcycle_records.h"

#include <gtest/gtest.h>

#include "app/default_settings.h"
#include "settings/settings_store.h"
#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel {
namespace {

std::uint64_t Fnv1a(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    }
    return hash;
}

std::vector<MakerRecord> ReadFrom(std::string_view settings) {
    const tests::TemporaryFolder folder;
    const std::string path = folder.File("Rotavel.ini");
    tests::WriteFile(path, std::string(settings));
    EXPECT_TRUE(SettingsOpenDefault(ToUtf16(path)));
    std::vector<MakerRecord> makers = ReadMotorcycles();
    SettingsClose();
    return makers;
}

TEST(Motorcycles, DefaultFileIsTheSameToTheByteAndReadBack) {
    EXPECT_EQ(Fnv1a(DefaultSettingsText), 0xbb082e841f833008);
    const std::vector<MakerRecord> makers = ReadFrom(DefaultSettingsText);
    ASSERT_EQ(makers.size(), 4U);
    EXPECT_EQ(makers[0].Models.size(), 39U);
    EXPECT_EQ(makers[3].Name, u"MV Agusta");
    const MotorcycleRecord& v35 = makers[0].Models[33];
    EXPECT_EQ(v35.Model, u"V35");
    EXPECT_EQ(v35.PrimaryRatio, 1.846);
    EXPECT_EQ(v35.GearRatio, (std::array{2.727, 1.733, 1.277, 1.045, 0.909, 0.0}));
    EXPECT_EQ(v35.RearWheelWidth, 3.25);
    EXPECT_EQ(v35.MaxRPM, 8000);
}

TEST(Motorcycles, MakersStandInOrderOfFirstAppearance) {
    std::vector<MakerRecord> makers = ReadFrom(
        "Key = 1\r\n[B - one]\r\nMaxRPM = x\r\n[Settings]\r\n[a-b-c]\r\n[settings]\r\n"
        "[ B-two ]\r\n[lone ]\r\n[b - three]\r\n[B - one]\r\nMaxRPM = 7\r\n");
    std::u16string list;
    for (const MakerRecord& maker : makers) {
        list += maker.Name + u":";
        for (const MotorcycleRecord& motorcycle : maker.Models) {
            list += motorcycle.Model + u",";
        }
    }
    ASSERT_EQ(list, u"B:one,two,one,a:b-c,:settings,lone,b:three,");
    EXPECT_EQ(makers[0].Models[0].MaxRPM, 0);
    EXPECT_EQ(makers[0].Models[2].MaxRPM, 7);

    makers[1].Models[0].MenuItem = 12;
    makers[2].Models[1].MenuItem = 12;
    const auto choice = FindMotorcycle(makers, 12);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->Motorcycle, &makers[1].Models[0]);
    EXPECT_FALSE(FindMotorcycle(makers, 13));
}

}  // namespace
}  // namespace rotavel
