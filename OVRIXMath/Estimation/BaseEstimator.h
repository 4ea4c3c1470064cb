#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <boost/noncopyable.hpp>
#include <boost/shared_ptr.hpp>

namespace ovrix
{
namespace math
{

/// A model that can be fitted to data: base of all estimators.
///
/// A model says how many data fix it, how many parameters it has and how long a datum is, and writes two hooks. All
/// checks stand here. This is a complete model, the line y = a x + b:
///
/// ```cpp
/// class LineEstimator : public BaseEstimator
/// {
/// public:
///     LineEstimator()
///     {
///         initBase(2, 2, 2); // two data fix it, it has the parameters (a, b), a datum is (x, y)
///     }
///
/// protected:
///     BoolResult processEstimation(const DataSet& dataSet, ParameterType& estimParams) override
///     {
///         Matrix A(dataSet.size(), 2);
///         Vector y(dataSet.size());
///         for (std::size_t i = 0; i < dataSet.size(); ++i)
///         {
///             A(i, 0) = dataSet[i](0);
///             A(i, 1) = 1.0;
///             y(i) = dataSet[i](1);
///         }
///         const bool bFullRank = svdSolve(A, y, estimParams) == 2;
///         return bFullRank ? BoolResult(true) : BoolResult(false, "All data have the same x");
///     }
///
///     BoolResult processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
///                                 ResidualsSet& residuals) const override
///     {
///         for (std::size_t i = 0; i < dataSet.size(); ++i)
///             residuals(i) = dataSet[i](1) - (estimParams(0) * dataSet[i](0) + estimParams(1));
///         return true;
///     }
/// };
/// ```
///
/// An estimator holds no result, so one object serves any number of estimations. Its `const` operations may run on
/// several threads at once as far as the hooks allow it.
class OVRIXMATH_EXPORT BaseEstimator : private boost::noncopyable
{
public:
    virtual ~BaseEstimator();

    /// Number of data that fix the model; also the size of the sub-sets that a robust estimation draws.
    ///
    /// @throws OVRIXMathException when initBase() has not run
    ovUInt32 getNbMinRequestedData() const;

    /// Number of estimated parameters.
    ///
    /// @throws OVRIXMathException when initBase() has not run
    ovUInt32 getNbEstimParams() const;

    /// Number of elements of one datum.
    ///
    /// @throws OVRIXMathException when initBase() has not run
    ovUInt32 getDataSize() const;

    /// Checks, in this order, the number of parameters, the number of data and the size of each datum.
    ///
    /// @return the first check that fails, or success
    /// @throws OVRIXMathException when initBase() has not run
    BoolResult checkData(const DataSet& dataSet, const ParameterType& estimParams) const;

    /// Fits the model to all data.
    ///
    /// @param dataSet at least getNbMinRequestedData() data of getDataSize() elements each
    /// @param[in,out] estimParams getNbEstimParams() elements, sized by the caller; untouched when a check fails
    /// @return the failure of checkData() or that of the model, or success
    /// @throws OVRIXMathException when initBase() has not run, and whatever the model raises
    BoolResult computeEstimation(const DataSet& dataSet, ParameterType& estimParams);

    /// Computes the signed residual of each datum.
    ///
    /// @param dataSet as for computeEstimation()
    /// @param estimParams getNbEstimParams() elements
    /// @param[in,out] residuals one element per datum, sized by the caller
    /// @return the failure of checkData() or that of the model, or success
    /// @throws OVRIXMathException when initBase() has not run; when `residuals` has another size than a data set that
    ///         is otherwise good
    BoolResult computeResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                ResidualsSet& residuals) const;

protected:
    BaseEstimator();

    /// Declares the model; the constructor of a concrete estimator calls it once.
    ///
    /// @param nbMinRequestedData number of data that fix the model, at least 1
    /// @param nbEstimParams number of its parameters, at least 1
    /// @param dataSize number of elements of a datum, at least 1
    /// @throws OVRIXMathException when a value is 0, in the order of the arguments; the object stays as it was
    void initBase(ovUInt32 nbMinRequestedData, ovUInt32 nbEstimParams, ovUInt32 dataSize);

    /// Fits the model. Called with data of the right size; from a robust estimation also with fewer data than the
    /// model's minimum, when too few inliers are left.
    ///
    /// @param dataSet the data
    /// @param[in,out] estimParams arrives with getNbEstimParams() elements
    /// @return success, or why these data do not fix the model
    virtual BoolResult processEstimation(const DataSet& dataSet, ParameterType& estimParams) = 0;

    /// Writes one signed residual per datum.
    ///
    /// @param dataSet the data
    /// @param estimParams getNbEstimParams() parameters
    /// @param[in,out] residuals arrives with one element per datum
    /// @return success, or why there are no residuals
    virtual BoolResult processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                        ResidualsSet& residuals) const = 0;

private:
    friend class BaseRobustEstimator;

    ovUInt32 _nbMinRequestedData;
    ovUInt32 _nbEstimParams;
    ovUInt32 _dataSize;
    ovBool _bInit;
};

/// How estimators are held.
using EstimatorPtr = boost::shared_ptr<BaseEstimator>;

} // namespace math
} // namespace ovrix
