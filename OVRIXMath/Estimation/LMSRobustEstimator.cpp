#include <OVRIXMath/Estimation/LMSRobustEstimator.h>

#include <algorithm>
#include <cmath>

namespace ovrix
{
namespace math
{

namespace
{

/// Brings the value that a sort would bring to `median` there, and the next smaller one in front of it. What is not a
/// number comes last.
void selectMedian(ovReal64* first, ovReal64* median, ovReal64* last, bool bAllNumbers)
{
    ovReal64* const numbersEnd =
        bAllNumbers ? last : std::partition(first, last, [](ovReal64 value) { return value == value; });
    if (median >= numbersEnd)
        return;
    std::nth_element(first, median, numbersEnd);
    if (median != first)
        std::iter_swap(std::max_element(first, median), median - 1);
}

} // namespace

LMSRobustEstimator::LMSRobustEstimator() = default;

LMSRobustEstimator::~LMSRobustEstimator() = default;

void LMSRobustEstimator::init(const EstimatorPtr& pEstimator)
{
    initBase(pEstimator);
}

ovReal64 LMSRobustEstimator::getMaxOutlierRatio() const
{
    return 0.5;
}

ovReal64 LMSRobustEstimator::computeOutlierThreshold(ovReal64 bestScore, ovUInt32 nbData,
                                                     ovUInt32 nbMinRequestedData) const
{
    const ovReal64 sigma =
        1.4826 * (1.0 + 5.0 / static_cast<ovReal64>(nbData - nbMinRequestedData)) * std::sqrt(bestScore);
    return std::sqrt(std::max(NumericLimits<ovReal64>::s_sqrt_eps, sigma * (6.25 * sigma)));
}

ovReal64 LMSRobustEstimator::computeScore(const ResidualsSet& residuals)
{
    const auto nbData = static_cast<ovUInt32>(residuals.size());
    _squaredResiduals.resize(nbData, false);
    const ovReal64* const r = residuals.data().begin();
    ovReal64* const squared = _squaredResiduals.data().begin();
    bool bAllNumbers = true;
    for (ovUInt32 i = 0; i < nbData; ++i)
    {
        squared[i] = r[i] * r[i];
        bAllNumbers &= squared[i] == squared[i];
    }

    const ovUInt32 medianIndex = nbData / 2;
    selectMedian(squared, squared + medianIndex, squared + nbData, bAllNumbers);
    return nbData % 2 != 0 ? squared[medianIndex] : (squared[medianIndex] + squared[medianIndex - 1]) * 0.5;
}

void LMSRobustEstimator::clearDerived()
{
    std::fill(_squaredResiduals.begin(), _squaredResiduals.end(), 0.0);
}

} // namespace math
} // namespace ovrix
