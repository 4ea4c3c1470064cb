// A process that knows nothing of log4cplus and meets every kind of failure; the library prints nothing on its own.

#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>

using namespace ovrix;
using namespace ovrix::math;

namespace
{

/// Number of kinds of failure that were met.
int meetFailures()
{
    int nbMet = 0;
    try
    {
        OVRIXMATH_RAISE_UNLESS(false, eEstimationMessage, 15, 0.0);
    }
    catch (const OVRIXMathException&)
    {
        ++nbMet;
    }
    try
    {
        OVRIXMATH_RAISE_UNLESS(false, eEstimationMessage, 1000);
    }
    catch (const BaseException&)
    {
        ++nbMet;
    }
    OVRIXMATH_WARN(eEstimationMessage, 26, 0.0, 1.0);
    if (!failure<eEstimationMessage>(0))
        ++nbMet;
    return nbMet;
}

} // namespace

int main()
{
    return meetFailures() == 3 ? 0 : 1;
}
