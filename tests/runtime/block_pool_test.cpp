#include "runtime/block_pool.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <set>

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
    pool.Give(*taken.begin());
    EXPECT_EQ(pool.Take(), *taken.begin());
    EXPECT_EQ(taken.count(pool.Take()), 0U);
}

}  // namespace
}  // namespace rotavel
