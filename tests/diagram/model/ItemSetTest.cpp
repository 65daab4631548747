#include "diagram/model/ItemSet.h"

#include <gtest/gtest.h>

using namespace diagram;

TEST(ItemSet, TellsWhatChangesIt) {
    ItemSet set;
    EXPECT_FALSE(set.Has(7));
    EXPECT_FALSE(set.Remove(7));
    EXPECT_TRUE(set.Add(7));
    EXPECT_FALSE(set.Add(7));
    EXPECT_TRUE(set.Has(7));
    EXPECT_FALSE(set.Has(6) || set.Has(8) || set.Has(kNoItem));
    EXPECT_TRUE(set.Add(3));
    EXPECT_TRUE(set.Remove(7));
    EXPECT_FALSE(set.Has(7));
    set.Clear();
    EXPECT_FALSE(set.Has(3));
    EXPECT_TRUE(set.Add(3));
}
