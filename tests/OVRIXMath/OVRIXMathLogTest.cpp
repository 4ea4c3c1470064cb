#include <OVRIXMath/OVRIXMathLog.h>

#include <support/ExpectFailure.h>
#include <support/LogCapture.h>

namespace ovrix
{
namespace math
{

TEST(OVRIXMathLog, TheLoggerNameIsThatOfTheBaseLoggerWithASuffix)
{
    EXPECT_EQ(getOVRIXMathLoggerName(), getBaseLoggerName() + ".OVRIXMath");
    EXPECT_EQ(getOVRIXMathLogger().getName(), "OVRIX.OVRIXMath");
}

} // namespace math
} // namespace ovrix
