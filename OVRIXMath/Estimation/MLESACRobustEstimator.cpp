#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/Estimation/MLESACRobustEstimator.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Tools/MathUtils.h>

#include <cmath>

namespace ovrix
{
namespace math
{

namespace
{

constexpr ovReal64 g_twoPi = 6.283185307179586;
constexpr ovUInt32 g_nbMaxRounds = 10;

/// Weights of the two densities for a number of inliers among all residuals.
struct Mixture
{
    Mixture(ovUInt32 nbInliers, ovUInt32 nbData, ovReal64 sigma, ovReal64 outlierRange)
    {
        const auto n = static_cast<ovReal64>(nbData);
        gaussian = (static_cast<ovReal64>(nbInliers) / n) / std::sqrt(g_twoPi * sigma);
        uniform = (static_cast<ovReal64>(nbData - nbInliers) / n) / outlierRange;
    }

    ovReal64 gaussian;
    ovReal64 uniform;
};

} // namespace

MLESACRobustEstimator::MLESACRobustEstimator()
    : _gaussianSigma(0.0), _outlierThresholdFactor(0.0), _outlierRangeFactor(0.0)
{
}

MLESACRobustEstimator::~MLESACRobustEstimator() = default;

void MLESACRobustEstimator::init(const EstimatorPtr& pEstimator, ovReal64 gaussianSigma,
                                 ovReal64 outlierThresholdFactor, ovReal64 outlierRangeFactor)
{
    OVRIXMATH_RAISE_UNLESS(gaussianSigma > 0.0, eEstimationMessage, 10, gaussianSigma);
    OVRIXMATH_RAISE_UNLESS(outlierThresholdFactor > 0.0, eEstimationMessage, 13, outlierThresholdFactor);
    OVRIXMATH_RAISE_UNLESS(outlierRangeFactor > outlierThresholdFactor, eEstimationMessage, 12, outlierRangeFactor,
                           outlierThresholdFactor);
    _gaussianSigma = gaussianSigma;
    _outlierThresholdFactor = outlierThresholdFactor;
    _outlierRangeFactor = outlierRangeFactor;
    initBase(pEstimator);
}

ovReal64 MLESACRobustEstimator::computeOutlierThreshold(ovReal64, ovUInt32, ovUInt32) const
{
    return _outlierThresholdFactor * _gaussianSigma;
}

ovReal64 MLESACRobustEstimator::computeScore(const ResidualsSet& residuals)
{
    const auto nbData = static_cast<ovUInt32>(residuals.size());
    const ovReal64* const r = residuals.data().begin();
    const auto n = static_cast<ovReal64>(nbData);
    const ovReal64 outlierRange = _gaussianSigma * _outlierRangeFactor;
    const ovReal64 denominator = -2.0 * _gaussianSigma * _gaussianSigma;

    auto nbInliers = round<ovUInt32, ovReal64>((1.0 - getExpectedOutlierRatio()) * n);
    ovUInt32 nbPreviousInliers = nbData + 1;
    for (ovUInt32 nbRounds = 0; nbInliers != nbPreviousInliers && nbRounds < g_nbMaxRounds; ++nbRounds)
    {
        const Mixture mixture(nbInliers, nbData, _gaussianSigma, outlierRange);
        ovReal64 sum = 0.0;
        for (ovUInt32 i = 0; i < nbData; ++i)
        {
            const ovReal64 inlier = mixture.gaussian * std::exp(r[i] * r[i] / denominator);
            sum += inlier / (mixture.uniform + inlier);
        }
        nbPreviousInliers = nbInliers;
        nbInliers = round<ovUInt32, ovReal64>(sum);
    }

    if (static_cast<ovReal64>(nbData - nbInliers) > n * getExpectedOutlierRatio())
        return NumericLimits<ovReal64>::s_max;
    if (nbData == 0)
        return 0.0;
    const Mixture mixture(nbInliers, nbData, _gaussianSigma, outlierRange);
    ovReal64 score = 0.0;
    for (ovUInt32 i = 0; i < nbData; ++i)
        score -= std::log(mixture.gaussian * std::exp(r[i] * r[i] / denominator) + mixture.uniform);
    return score;
}

} // namespace math
} // namespace ovrix
