#include <OVRIXMath/Estimation/EstimationOperators.h>
#include <OVRIXMath/Statistics/HistogramStructures.h>

#include <ostream>

namespace ovrix
{
namespace math
{

bool operator==(const HistogramExtrema& a, const HistogramExtrema& b)
{
    return a._binIdx == b._binIdx && a._coord == b._coord && a._population == b._population;
}

std::ostream& operator<<(std::ostream& stream, const HistogramExtrema& extrema)
{
    return stream << "{BinIdx=" << extrema._binIdx << ", Coord=" << extrema._coord
                  << ", Population=" << extrema._population << "}";
}

std::ostream& operator<<(std::ostream& stream, const HistogramGaussianCurveFit& fit)
{
    return stream << "{CsteA=" << fit._csteA << ", CsteMu=" << fit._csteMu << ", CsteSigma=" << fit._csteSigma
                  << ", EstimationResults=" << fit._estimationResults << "}";
}

} // namespace math
} // namespace ovrix
