#pragma once

#include <OVRIXUtil/NumericLimits.h>
#include <OVRIXUtil/ProcessingResult.h>
#include <OVRIXUtil/Types.h>

#include <boost/numeric/ublas/matrix.hpp>
#include <boost/numeric/ublas/vector.hpp>

#include <vector>

namespace ovrix
{
namespace math
{

/// Vector of `double` with dynamic size and contiguous storage.
using Vector = boost::numeric::ublas::vector<double>;

/// Matrix of `double` with dynamic size and contiguous row-major storage.
using Matrix = boost::numeric::ublas::matrix<double>;

/// Input of an estimation, one Vector per datum; all data have the size that the estimator declares.
using DataSet = std::vector<Vector>;

/// Estimated parameters of a model.
using ParameterType = Vector;

/// One signed residual per datum, in the order of the DataSet.
using ResidualsSet = Vector;

/// One flag per datum, `true` meaning outlier.
using OutlierFlags = std::vector<bool>;

namespace clustering
{

/// Collection of samples or centres.
using VectorColl = std::vector<Vector>;

/// Assignments of samples to clusters, and lists of indices.
using UInt32Vector = std::vector<unsigned int>;

} // namespace clustering
} // namespace math
} // namespace ovrix
