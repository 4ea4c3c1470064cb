#include <OVRIXMath/LinearAlgebra/LapackSize.h>

#include <cstddef>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace math
{
namespace details
{

TEST(ToLapackSize, KeepsWhatThirtyTwoBitsCount)
{
    for (const std::size_t size : {0ul, 1ul, 46341ul, 2147483647ul})
        EXPECT_EQ(static_cast<std::size_t>(toLapackSize(size)), size);
}

TEST(ToLapackSize, RefusesWhatThirtyTwoBitsDoNotCount)
{
    for (const std::size_t size : {2147483648ul, 4294967296ul, 4294967299ul, ~0ul})
        test::expectMathRaises("LaPack repport an error during execution", [size] { toLapackSize(size); });
}

} // namespace details
} // namespace math
} // namespace ovrix
