#include "app/default_settings.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <string_view>

namespace rotavel {
namespace {

std::uint64_t Fnv1a(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    }
    return hash;
}

TEST(DefaultSettingsText, IsTheSameToTheByte) {
    EXPECT_EQ(DefaultSettingsText.size(), 17404U);
    EXPECT_EQ(std::ranges::count(DefaultSettingsText, '\n'), 842);
    EXPECT_EQ(Fnv1a(DefaultSettingsText), 0xbb082e841f833008);
}

}  // namespace
}  // namespace rotavel
