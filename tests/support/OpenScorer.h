#pragma once

#include <OVRIXMath/Estimation/BaseRobustEstimator.h>

#include <boost/make_shared.hpp>

#include <limits>
#include <support/MockEstimators.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace test
{

/// A robust estimator whose hooks can be called.
template <class Scorer>
class OpenScorer : public Scorer
{
public:
    using Scorer::computeOutlierThreshold;
    using Scorer::computeScore;
    using Scorer::getMaxOutlierRatio;
};

/// A model for scorers, which never ask it anything.
inline math::EstimatorPtr anyEstimator()
{
    return boost::make_shared<testing::NiceMock<MockEstimator>>(2u, 1u, 1u);
}

/// Residuals of which about a third is far out; some are exactly 0 or of magnitude 1, the edge of thresholds.
inline math::ResidualsSet anyResiduals(RandomData& random, unsigned int nbData)
{
    math::ResidualsSet residuals(nbData);
    for (double& r : residuals)
    {
        const unsigned int kind = random.integer(0, 9);
        r = kind == 0   ? 0.0
            : kind == 1 ? 1.0
            : kind == 2 ? -1.0
            : kind < 6  ? random.real(-40.0, 40.0)
                        : random.normal(0.7);
    }
    return residuals;
}

/// As above with values that are infinite or not a number strewn in.
inline math::ResidualsSet anyResidualsWithOddities(RandomData& random, unsigned int nbData)
{
    math::ResidualsSet residuals = anyResiduals(random, nbData);
    for (double& r : residuals)
    {
        const unsigned int kind = random.integer(0, 19);
        if (kind == 0)
            r = std::numeric_limits<double>::quiet_NaN();
        else if (kind == 1)
            r = std::numeric_limits<double>::infinity();
        else if (kind == 2)
            r = -std::numeric_limits<double>::infinity();
        else if (kind == 3)
            r = 1e300;
    }
    return residuals;
}

} // namespace test
} // namespace ovrix
