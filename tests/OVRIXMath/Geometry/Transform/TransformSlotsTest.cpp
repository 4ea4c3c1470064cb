// Programs that were compiled against the bases of the transforms call their operations by their place in the table of
// virtual functions, so that the order of their declarations may not change.

#include <OVRIXMath/Geometry/2d/Transform/BaseLinearGeometricTransform2d.h>
#include <OVRIXMath/Geometry/3d/Transform/BaseLinearGeometricTransform3d.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace ovrix
{
namespace math
{
namespace transform
{

namespace
{

/// The place of a virtual function in its table. A pointer to one begins with one more than its offset in bytes.
template <class Function>
std::size_t getSlot(Function function)
{
    std::size_t word = 0;
    std::memcpy(&word, &function, sizeof(word));
    EXPECT_EQ(word % sizeof(void*), 1u) << "The function is not virtual";
    return word / sizeof(void*);
}

/// The places behind the two of the destructor.
const std::vector<std::size_t> g_slots{2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};

} // namespace

TEST(BaseLinearGeometricTransform2d, KeepsTheOrderOfItsVirtualOperations)
{
    using Base = BaseLinearGeometricTransform2d;
    const auto apply = static_cast<void (Base::*)(ovReal64&, ovReal64&) const>(&Base::apply);
    const std::vector<std::size_t> slots{
        getSlot(&Base::getGeometricTransform2dType),
        getSlot(&Base::getNbParams),
        getSlot(&Base::isLinear),
        getSlot(&Base::setParams),
        getSlot(&Base::setIdentity),
        getSlot(apply),
        getSlot(&Base::getParams),
        getSlot(&Base::isInvertible),
        getSlot(&Base::getInvParams),
        getSlot(&Base::getHomogenousMatrix),
        getSlot(&Base::getInvHomogenousMatrix),
    };
    EXPECT_EQ(slots, g_slots);
}

TEST(BaseLinearGeometricTransform3d, KeepsTheOrderOfItsVirtualOperations)
{
    using Base = BaseLinearGeometricTransform3d;
    const auto apply = static_cast<void (Base::*)(ovReal64&, ovReal64&, ovReal64&) const>(&Base::apply);
    const std::vector<std::size_t> slots{
        getSlot(&Base::getGeometricTransform3dType),
        getSlot(&Base::getNbParams),
        getSlot(&Base::isLinear),
        getSlot(&Base::setParams),
        getSlot(&Base::setIdentity),
        getSlot(apply),
        getSlot(&Base::getParams),
        getSlot(&Base::isInvertible),
        getSlot(&Base::getInvParams),
        getSlot(&Base::getHomogenousMatrix),
        getSlot(&Base::getInvHomogenousMatrix),
    };
    EXPECT_EQ(slots, g_slots);
}

} // namespace transform
} // namespace math
} // namespace ovrix
