#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Statistics/BasicStatistics.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>
#include <OVRIXMath/Tools/WrappingArithmetic.h>

#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

/// `moment`, a mean of products of deviations over k - 1 elements, with the product that the k-th element adds.
inline double updateMoment(double moment, double product, double k)
{
    return moment * (k - 1.0) / k + product / (k - 1.0);
}

} // namespace

template <class T>
ovReal64 mean(const std::vector<T>& values)
{
    double sum = 0.0;
    for (const T value : values)
        sum += static_cast<double>(value);
    return sum / static_cast<double>(values.size());
}

template <class T>
ovReal64 variance(const std::vector<T>& values)
{
    double m = 0.0;
    double s = 0.0;
    double k = 0.0;
    for (const T value : values)
    {
        const double x = static_cast<double>(value);
        k += 1.0;
        m = (m * (k - 1.0) + x) / k;
        if (k != 1.0)
            s = updateMoment(s, (x - m) * (x - m), k);
    }
    return s;
}

template <class T>
ovReal64 stdDev(const std::vector<T>& values)
{
    return std::sqrt(variance(values));
}

template <class T>
std::pair<ovReal64, ovReal64> meanAndVariance(const std::vector<T>& values)
{
    double sum = 0.0;
    double s = 0.0;
    double k = 0.0;
    for (const T value : values)
    {
        const double x = static_cast<double>(value);
        k += 1.0;
        sum += x;
        if (k != 1.0)
        {
            const double d = x - sum / k;
            s = updateMoment(s, d * d, k);
        }
    }
    return std::make_pair(sum / k, s);
}

template <class T>
ovReal64 correlation(const std::vector<T>& first, const std::vector<T>& second)
{
    OVRIXMATH_RAISE_UNLESS(first.size() == second.size(), eStatisticsMessage, 0, first.size(), second.size());

    double sumX = 0.0;
    double sumY = 0.0;
    double squaresX = 0.0;
    double squaresY = 0.0;
    double covariance = 0.0;
    double k = 0.0;
    for (std::size_t i = 0; i < first.size(); ++i)
    {
        const double x = static_cast<double>(first[i]);
        const double y = static_cast<double>(second[i]);
        k += 1.0;
        sumX += x;
        sumY += y;
        if (k != 1.0)
            covariance = updateMoment(covariance, (sumX / k - x) * (sumY / k - y), k);
        squaresX += static_cast<double>(details::wrappingMultiply(first[i], first[i]));
        squaresY += static_cast<double>(details::wrappingMultiply(second[i], second[i]));
    }

    const double meanX = sumX / k;
    const double meanY = sumY / k;
    const double varianceX = squaresX / k - meanX * meanX;
    const double varianceY = squaresY / k - meanY * meanY;
    const double product = varianceX * varianceY;
    if (product == 0.0)
        return 0.0;
    return covariance / std::sqrt(product);
}

template OVRIXMATH_EXPORT ovReal64 mean<signed char>(const std::vector<signed char>&);
template OVRIXMATH_EXPORT ovReal64 mean<unsigned char>(const std::vector<unsigned char>&);
template OVRIXMATH_EXPORT ovReal64 mean<short>(const std::vector<short>&);
template OVRIXMATH_EXPORT ovReal64 mean<unsigned short>(const std::vector<unsigned short>&);
template OVRIXMATH_EXPORT ovReal64 mean<int>(const std::vector<int>&);
template OVRIXMATH_EXPORT ovReal64 mean<unsigned int>(const std::vector<unsigned int>&);
template OVRIXMATH_EXPORT ovReal64 mean<float>(const std::vector<float>&);
template OVRIXMATH_EXPORT ovReal64 mean<double>(const std::vector<double>&);

template OVRIXMATH_EXPORT ovReal64 variance<signed char>(const std::vector<signed char>&);
template OVRIXMATH_EXPORT ovReal64 variance<unsigned char>(const std::vector<unsigned char>&);
template OVRIXMATH_EXPORT ovReal64 variance<short>(const std::vector<short>&);
template OVRIXMATH_EXPORT ovReal64 variance<unsigned short>(const std::vector<unsigned short>&);
template OVRIXMATH_EXPORT ovReal64 variance<int>(const std::vector<int>&);
template OVRIXMATH_EXPORT ovReal64 variance<unsigned int>(const std::vector<unsigned int>&);
template OVRIXMATH_EXPORT ovReal64 variance<float>(const std::vector<float>&);
template OVRIXMATH_EXPORT ovReal64 variance<double>(const std::vector<double>&);

template OVRIXMATH_EXPORT ovReal64 stdDev<signed char>(const std::vector<signed char>&);
template OVRIXMATH_EXPORT ovReal64 stdDev<unsigned char>(const std::vector<unsigned char>&);
template OVRIXMATH_EXPORT ovReal64 stdDev<short>(const std::vector<short>&);
template OVRIXMATH_EXPORT ovReal64 stdDev<unsigned short>(const std::vector<unsigned short>&);
template OVRIXMATH_EXPORT ovReal64 stdDev<int>(const std::vector<int>&);
template OVRIXMATH_EXPORT ovReal64 stdDev<unsigned int>(const std::vector<unsigned int>&);
template OVRIXMATH_EXPORT ovReal64 stdDev<float>(const std::vector<float>&);
template OVRIXMATH_EXPORT ovReal64 stdDev<double>(const std::vector<double>&);

template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<signed char>(const std::vector<signed char>&);
template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64>
meanAndVariance<unsigned char>(const std::vector<unsigned char>&);
template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<short>(const std::vector<short>&);
template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64>
meanAndVariance<unsigned short>(const std::vector<unsigned short>&);
template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<int>(const std::vector<int>&);
template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<unsigned int>(const std::vector<unsigned int>&);
template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<float>(const std::vector<float>&);
template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<double>(const std::vector<double>&);

template OVRIXMATH_EXPORT ovReal64 correlation<signed char>(const std::vector<signed char>&,
                                                            const std::vector<signed char>&);
template OVRIXMATH_EXPORT ovReal64 correlation<unsigned char>(const std::vector<unsigned char>&,
                                                              const std::vector<unsigned char>&);
template OVRIXMATH_EXPORT ovReal64 correlation<short>(const std::vector<short>&, const std::vector<short>&);
template OVRIXMATH_EXPORT ovReal64 correlation<unsigned short>(const std::vector<unsigned short>&,
                                                               const std::vector<unsigned short>&);
template OVRIXMATH_EXPORT ovReal64 correlation<int>(const std::vector<int>&, const std::vector<int>&);
template OVRIXMATH_EXPORT ovReal64 correlation<unsigned int>(const std::vector<unsigned int>&,
                                                             const std::vector<unsigned int>&);
template OVRIXMATH_EXPORT ovReal64 correlation<float>(const std::vector<float>&, const std::vector<float>&);
template OVRIXMATH_EXPORT ovReal64 correlation<double>(const std::vector<double>&, const std::vector<double>&);

} // namespace math
} // namespace ovrix
