#include "app/motorcycle_records.h"

#include "app_test.h"

namespace rotavel {
namespace {

using namespace tests;

TEST(MotorcycleRecords, MakersStandInOrderOfFirstAppearance) {
    const TemporaryFolder folder;
    WriteFile(folder.File("Rotavel.ini"),
              "Key = 1\r\n[B - one]\r\nMaxRPM = x\r\n[Settings]\r\n[a-b-c]\r\n[settings]\r\n"
              "[ B-two ]\r\n[lone ]\r\n[b - three]\r\n[B - one]\r\nMaxRPM = 7\r\n");
    ASSERT_TRUE(SettingsOpenDefault(ToUtf16(folder.File("Rotavel.ini"))));
    std::vector<MakerRecord> makers = ReadMotorcycles();
    SettingsClose();
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
