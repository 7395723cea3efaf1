#include <cstdint>
#include <gtest/gtest.h>
#include <set>

#include "runtime/block_pool.h"
#include "runtime/numbered_objects.h"

namespace rotavel {
namespace {

TEST(BlockPool, HandsOutDistinctBlocksAndReusesReturnedOnes) {
    BlockPool<std::uint64_t> pool;
    std::set<std::uint64_t*> taken;
    for (std::uint64_t i = 0; i < 200000; ++i) {
        std::uint64_t* const block = pool.Take();
        *block = i;
        ASSERT_TRUE(taken.insert(block).second);
    }
    std::uint64_t* const returned = *taken.begin();
    pool.Give(returned);
    EXPECT_EQ(pool.Take(), returned);
    EXPECT_EQ(taken.count(pool.Take()), 0U);
    pool.Release();
    EXPECT_NE(pool.Take(), nullptr);
}

TEST(NumberedObjects, KeepsRecordsUnderChosenAndAutomaticNumbers) {
    NumberedObjects<int> objects;
    *objects.Create(7).second = 70;
    const auto [automatic, record] = objects.Create(AnyNumber);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(objects.Find(automatic), record);
    EXPECT_EQ(objects.Create(7).second, nullptr);
    EXPECT_EQ(objects.Create(-2).second, nullptr);

    EXPECT_EQ(*objects.Next(0).second, 70);
    EXPECT_EQ(objects.Next(8).first, automatic);
    objects.Remove(7);
    objects.Remove(7);
    EXPECT_EQ(objects.Find(7), nullptr);
    objects.Remove(automatic);
    EXPECT_EQ(objects.Next(0).second, nullptr);
}

}  // namespace
}  // namespace rotavel
