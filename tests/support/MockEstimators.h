#pragma once

#include <OVRIXMath/Estimation/BaseEstimator.h>
#include <OVRIXMath/Estimation/BaseRobustEstimator.h>
#include <OVRIXMath/Estimation/DataPartition/BaseDataPartition.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <vector>

/// @file
/// A model, a scorer and a partition whose hooks are mocked, to look at each part of a robust estimation on its own.
///
/// Without expectations of a test the three make an estimation that succeeds at every step: the model writes the number
/// of the fit into all parameters and residuals, the score is the first residual, no residual is an outlier, and the
/// partition draws each combination of data once, in lexicographic order.

namespace ovrix
{
namespace test
{

/// A model whose hooks are mocked.
class MockEstimator : public math::BaseEstimator
{
public:
    /// A model that has not been declared.
    MockEstimator()
    {
        ON_CALL(*this, processEstimation)
            .WillByDefault(
                [this](const math::DataSet&, math::ParameterType& estimParams)
                {
                    std::fill(estimParams.begin(), estimParams.end(), ++_nbFits);
                    return BoolResult(true);
                });
        ON_CALL(*this, processResiduals)
            .WillByDefault(
                [](const math::DataSet&, const math::ParameterType& estimParams, math::ResidualsSet& residuals)
                {
                    std::fill(residuals.begin(), residuals.end(), estimParams(0));
                    return BoolResult(true);
                });
    }

    MockEstimator(ovUInt32 nbMinRequestedData, ovUInt32 nbEstimParams, ovUInt32 dataSize) : MockEstimator()
    {
        initBase(nbMinRequestedData, nbEstimParams, dataSize);
    }

    using BaseEstimator::initBase;

    MOCK_METHOD(BoolResult, processEstimation, (const math::DataSet&, math::ParameterType&), (override));
    MOCK_METHOD(BoolResult, processResiduals, (const math::DataSet&, const math::ParameterType&, math::ResidualsSet&),
                (const, override));

private:
    double _nbFits = 0.0;
};

/// A robust estimator whose score and threshold are mocked.
class MockScorer : public math::BaseRobustEstimator
{
public:
    MockScorer()
    {
        ON_CALL(*this, getMaxOutlierRatio).WillByDefault([this] { return BaseRobustEstimator::getMaxOutlierRatio(); });
        ON_CALL(*this, computeOutlierThreshold).WillByDefault(testing::Return(NumericLimits<double>::s_max));
        ON_CALL(*this, computeScore).WillByDefault([](const math::ResidualsSet& residuals) { return residuals(0); });
    }

    void init(const math::EstimatorPtr& pEstimator)
    {
        initBase(pEstimator);
    }

    using BaseRobustEstimator::getExpectedOutlierRatio;

    MOCK_METHOD(ovReal64, getMaxOutlierRatio, (), (const, override));
    MOCK_METHOD(ovReal64, computeOutlierThreshold, (ovReal64, ovUInt32, ovUInt32), (const, override));
    MOCK_METHOD(ovReal64, computeScore, (const math::ResidualsSet&), (override));
    MOCK_METHOD(void, clearDerived, (), (override));
};

/// A partition whose hooks are mocked; the checks and the memory of sub-sets are those of BaseDataPartition.
class MockPartition : public UncopyableObject<MockPartition, math::BaseDataPartition>
{
public:
    MockPartition()
    {
        ON_CALL(*this, initDerived)
            .WillByDefault(
                [this](const math::DataSet& dataSet, ovUInt32 subSetRequestedSize)
                {
                    _drawn.assign(dataSet.size(), false);
                    std::fill_n(_drawn.begin(), subSetRequestedSize, true);
                    return BoolResult(true);
                });
        ON_CALL(*this, randomSubSet)
            .WillByDefault(
                [this](ovUInt32)
                {
                    std::set<ovUInt32> indexes;
                    for (std::size_t i = 0; i < _drawn.size(); ++i)
                    {
                        if (_drawn[i])
                            indexes.insert(static_cast<ovUInt32>(i));
                    }
                    std::prev_permutation(_drawn.begin(), _drawn.end());
                    return indexes;
                });
    }

    math::eDataPartitionType getDataPartitionType() const override
    {
        return math::eDPT_Regular;
    }

    MOCK_METHOD(BoolResult, initDerived, (const math::DataSet&, ovUInt32), (override));
    MOCK_METHOD(void, clearDerived, (), (override));
    MOCK_METHOD(std::set<ovUInt32>, randomSubSet, (ovUInt32), (override));

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::test::MockPartition";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items&, Self&)
    {
    }

    std::vector<bool> _drawn;
};

} // namespace test
} // namespace ovrix
