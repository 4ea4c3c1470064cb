#include <OVRIXMath/Tools/GaussianSmoothing1D.h>
#include <OVRIXMath/Tools/Tophat1D.h>

#include <gtest/gtest.h>

#include <support/Addresses.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::Addresses;
using test::TypeList;

using SequenceTypes = TypeList<signed char, unsigned char, short, unsigned short, int, unsigned int, float>;

template <class... T>
void addSequenceTools(TypeList<T...>, Addresses& addresses)
{
    (addresses.add(&tophatThreshold1D<T>), ...);
    (addresses.add(&gaussianSmoothing1D<T>), ...);
}

} // namespace

TEST(ToolsInstances, TwoFunctionsOfSevenElementTypesAreExported)
{
    Addresses addresses;
    addSequenceTools(SequenceTypes(), addresses);
    EXPECT_EQ(addresses.size(), 14u);
}

} // namespace math
} // namespace ovrix
