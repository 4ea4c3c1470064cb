#include <OVRIXUtil/ReserveOneMore.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <support/AllocationCount.h>
#include <vector>

namespace ovrix
{

TEST(ReserveOneMore, AppendingTakesNoMemoryThen)
{
    std::vector<int> elements;
    for (int i = 0; i < 100; ++i)
    {
        details::reserveOneMore(elements);
        const std::size_t nbAllocations = test::getNbAllocations();
        elements.push_back(i);
        EXPECT_EQ(test::getNbAllocations(), nbAllocations) << i;
    }
}

TEST(ReserveOneMore, RoomThatIsThereIsLeftAsItIs)
{
    std::vector<int> elements;
    elements.reserve(10);
    elements.assign(9, 7);
    const std::size_t capacity = elements.capacity();
    details::reserveOneMore(elements);
    EXPECT_EQ(elements.capacity(), capacity);
}

TEST(ReserveOneMore, RoomGrowsInProportion)
{
    std::vector<int> elements;
    const std::size_t nbAllocations = test::getNbAllocations();
    for (int i = 0; i < 100000; ++i)
    {
        details::reserveOneMore(elements);
        elements.push_back(i);
    }
    EXPECT_LT(test::getNbAllocations() - nbAllocations, 20u);
}

} // namespace ovrix
