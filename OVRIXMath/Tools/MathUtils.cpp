#include <OVRIXMath/Tools/MathUtils.h>
#include <OVRIXMath/Tools/RoundingRules.h>

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace ovrix
{
namespace math
{

namespace
{

/// The type that differences of T are computed in.
template <class T>
using Wide = std::conditional_t<std::is_floating_point<T>::value, double,
                                std::conditional_t<(sizeof(T) < sizeof(int)), int, long>>;

inline double absoluteDifference(double a, double b)
{
    return std::abs(a - b);
}

inline int absoluteDifference(int a, int b)
{
    return std::max(a - b, b - a);
}

/// Wraps around, through unsigned arithmetic.
inline long absoluteDifference(long a, long b)
{
    const unsigned long difference = static_cast<unsigned long>(a) - static_cast<unsigned long>(b);
    return std::max(static_cast<long>(difference), static_cast<long>(0 - difference));
}

template <class T>
inline bool isWithin(T a, T b, T tol)
{
    using W = Wide<T>;
    return static_cast<W>(tol) >= absoluteDifference(static_cast<W>(a), static_cast<W>(b));
}

template <class T>
inline bool isWithinRelative(T a, T b, T tol)
{
    using W = Wide<T>;
    const W wideTol = static_cast<W>(tol);
    const W magnitude = absoluteDifference(static_cast<W>(b), W(0));
    if (magnitude > wideTol)
        return wideTol >= absoluteDifference(static_cast<W>(a), static_cast<W>(b)) / magnitude;
    return wideTol >= absoluteDifference(static_cast<W>(a), W(0));
}

} // namespace

template <class T, class U>
T round(U v)
{
    return details::roundTo<T>(v);
}

template <class T, class U>
T saturatedRound(U v)
{
    return details::saturatedRoundTo<T>(v);
}

template <class T>
void sort(const T& a, const T& b, const T& c, T& minValue, T& midValue, T& maxValue)
{
    const bool bSwap = a > b;
    const T& low = bSwap ? b : a;
    const T& high = bSwap ? a : b;
    if (low > c)
    {
        minValue = c;
        midValue = low;
        maxValue = high;
    }
    else if (high > c)
    {
        minValue = low;
        midValue = c;
        maxValue = high;
    }
    else
    {
        minValue = low;
        midValue = high;
        maxValue = c;
    }
}

template <class T>
typename boost::enable_if<typename boost::is_arithmetic<T>::type, bool>::type compare(T a, T b, T tol)
{
    return isWithin<T>(a, b, tol);
}

template <class T>
typename boost::enable_if<typename boost::is_arithmetic<T>::type, bool>::type compare(const std::vector<T>& a,
                                                                                      const std::vector<T>& b, T tol)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [tol](T x, T y) { return isWithin<T>(x, y, tol); });
}

template <class T>
typename boost::enable_if<typename boost::is_arithmetic<T>::type, bool>::type compareRelative(T a, T b, T tol)
{
    return isWithinRelative<T>(a, b, tol);
}

template <class T>
typename boost::enable_if<typename boost::is_arithmetic<T>::type, bool>::type
compareRelative(const std::vector<T>& a, const std::vector<T>& b, T tol)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [tol](T x, T y) { return isWithinRelative<T>(x, y, tol); });
}

template OVRIXMATH_EXPORT signed char round<signed char, float>(float);
template OVRIXMATH_EXPORT unsigned char round<unsigned char, float>(float);
template OVRIXMATH_EXPORT short round<short, float>(float);
template OVRIXMATH_EXPORT unsigned short round<unsigned short, float>(float);
template OVRIXMATH_EXPORT int round<int, float>(float);
template OVRIXMATH_EXPORT unsigned int round<unsigned int, float>(float);
template OVRIXMATH_EXPORT long round<long, float>(float);
template OVRIXMATH_EXPORT unsigned long round<unsigned long, float>(float);
template OVRIXMATH_EXPORT float round<float, float>(float);
template OVRIXMATH_EXPORT double round<double, float>(float);
template OVRIXMATH_EXPORT signed char round<signed char, double>(double);
template OVRIXMATH_EXPORT unsigned char round<unsigned char, double>(double);
template OVRIXMATH_EXPORT short round<short, double>(double);
template OVRIXMATH_EXPORT unsigned short round<unsigned short, double>(double);
template OVRIXMATH_EXPORT int round<int, double>(double);
template OVRIXMATH_EXPORT unsigned int round<unsigned int, double>(double);
template OVRIXMATH_EXPORT long round<long, double>(double);
template OVRIXMATH_EXPORT unsigned long round<unsigned long, double>(double);
template OVRIXMATH_EXPORT float round<float, double>(double);
template OVRIXMATH_EXPORT double round<double, double>(double);

template OVRIXMATH_EXPORT signed char saturatedRound<signed char, float>(float);
template OVRIXMATH_EXPORT unsigned char saturatedRound<unsigned char, float>(float);
template OVRIXMATH_EXPORT short saturatedRound<short, float>(float);
template OVRIXMATH_EXPORT unsigned short saturatedRound<unsigned short, float>(float);
template OVRIXMATH_EXPORT int saturatedRound<int, float>(float);
template OVRIXMATH_EXPORT unsigned int saturatedRound<unsigned int, float>(float);
template OVRIXMATH_EXPORT long saturatedRound<long, float>(float);
template OVRIXMATH_EXPORT unsigned long saturatedRound<unsigned long, float>(float);
template OVRIXMATH_EXPORT float saturatedRound<float, float>(float);
template OVRIXMATH_EXPORT double saturatedRound<double, float>(float);
template OVRIXMATH_EXPORT signed char saturatedRound<signed char, double>(double);
template OVRIXMATH_EXPORT unsigned char saturatedRound<unsigned char, double>(double);
template OVRIXMATH_EXPORT short saturatedRound<short, double>(double);
template OVRIXMATH_EXPORT unsigned short saturatedRound<unsigned short, double>(double);
template OVRIXMATH_EXPORT int saturatedRound<int, double>(double);
template OVRIXMATH_EXPORT unsigned int saturatedRound<unsigned int, double>(double);
template OVRIXMATH_EXPORT long saturatedRound<long, double>(double);
template OVRIXMATH_EXPORT unsigned long saturatedRound<unsigned long, double>(double);
template OVRIXMATH_EXPORT float saturatedRound<float, double>(double);
template OVRIXMATH_EXPORT double saturatedRound<double, double>(double);

template OVRIXMATH_EXPORT void sort<double>(const double&, const double&, const double&, double&, double&, double&);
template OVRIXMATH_EXPORT void sort<int>(const int&, const int&, const int&, int&, int&, int&);
template OVRIXMATH_EXPORT void sort<unsigned int>(const unsigned int&, const unsigned int&, const unsigned int&,
                                                  unsigned int&, unsigned int&, unsigned int&);

template OVRIXMATH_EXPORT bool compare<bool>(bool, bool, bool);
template OVRIXMATH_EXPORT bool compare<signed char>(signed char, signed char, signed char);
template OVRIXMATH_EXPORT bool compare<unsigned char>(unsigned char, unsigned char, unsigned char);
template OVRIXMATH_EXPORT bool compare<short>(short, short, short);
template OVRIXMATH_EXPORT bool compare<unsigned short>(unsigned short, unsigned short, unsigned short);
template OVRIXMATH_EXPORT bool compare<int>(int, int, int);
template OVRIXMATH_EXPORT bool compare<unsigned int>(unsigned int, unsigned int, unsigned int);
template OVRIXMATH_EXPORT bool compare<long>(long, long, long);
template OVRIXMATH_EXPORT bool compare<unsigned long>(unsigned long, unsigned long, unsigned long);
template OVRIXMATH_EXPORT bool compare<float>(float, float, float);
template OVRIXMATH_EXPORT bool compare<double>(double, double, double);

template OVRIXMATH_EXPORT bool compare<bool>(const std::vector<bool>&, const std::vector<bool>&, bool);
template OVRIXMATH_EXPORT bool compare<signed char>(const std::vector<signed char>&, const std::vector<signed char>&,
                                                    signed char);
template OVRIXMATH_EXPORT bool compare<unsigned char>(const std::vector<unsigned char>&,
                                                      const std::vector<unsigned char>&, unsigned char);
template OVRIXMATH_EXPORT bool compare<short>(const std::vector<short>&, const std::vector<short>&, short);
template OVRIXMATH_EXPORT bool compare<unsigned short>(const std::vector<unsigned short>&,
                                                       const std::vector<unsigned short>&, unsigned short);
template OVRIXMATH_EXPORT bool compare<int>(const std::vector<int>&, const std::vector<int>&, int);
template OVRIXMATH_EXPORT bool compare<unsigned int>(const std::vector<unsigned int>&, const std::vector<unsigned int>&,
                                                     unsigned int);
template OVRIXMATH_EXPORT bool compare<long>(const std::vector<long>&, const std::vector<long>&, long);
template OVRIXMATH_EXPORT bool compare<unsigned long>(const std::vector<unsigned long>&,
                                                      const std::vector<unsigned long>&, unsigned long);
template OVRIXMATH_EXPORT bool compare<float>(const std::vector<float>&, const std::vector<float>&, float);
template OVRIXMATH_EXPORT bool compare<double>(const std::vector<double>&, const std::vector<double>&, double);

template OVRIXMATH_EXPORT bool compareRelative<bool>(bool, bool, bool);
template OVRIXMATH_EXPORT bool compareRelative<signed char>(signed char, signed char, signed char);
template OVRIXMATH_EXPORT bool compareRelative<unsigned char>(unsigned char, unsigned char, unsigned char);
template OVRIXMATH_EXPORT bool compareRelative<short>(short, short, short);
template OVRIXMATH_EXPORT bool compareRelative<unsigned short>(unsigned short, unsigned short, unsigned short);
template OVRIXMATH_EXPORT bool compareRelative<int>(int, int, int);
template OVRIXMATH_EXPORT bool compareRelative<unsigned int>(unsigned int, unsigned int, unsigned int);
template OVRIXMATH_EXPORT bool compareRelative<long>(long, long, long);
template OVRIXMATH_EXPORT bool compareRelative<unsigned long>(unsigned long, unsigned long, unsigned long);
template OVRIXMATH_EXPORT bool compareRelative<float>(float, float, float);
template OVRIXMATH_EXPORT bool compareRelative<double>(double, double, double);

template OVRIXMATH_EXPORT bool compareRelative<bool>(const std::vector<bool>&, const std::vector<bool>&, bool);
template OVRIXMATH_EXPORT bool compareRelative<signed char>(const std::vector<signed char>&,
                                                            const std::vector<signed char>&, signed char);
template OVRIXMATH_EXPORT bool compareRelative<unsigned char>(const std::vector<unsigned char>&,
                                                              const std::vector<unsigned char>&, unsigned char);
template OVRIXMATH_EXPORT bool compareRelative<short>(const std::vector<short>&, const std::vector<short>&, short);
template OVRIXMATH_EXPORT bool compareRelative<unsigned short>(const std::vector<unsigned short>&,
                                                               const std::vector<unsigned short>&, unsigned short);
template OVRIXMATH_EXPORT bool compareRelative<int>(const std::vector<int>&, const std::vector<int>&, int);
template OVRIXMATH_EXPORT bool compareRelative<unsigned int>(const std::vector<unsigned int>&,
                                                             const std::vector<unsigned int>&, unsigned int);
template OVRIXMATH_EXPORT bool compareRelative<long>(const std::vector<long>&, const std::vector<long>&, long);
template OVRIXMATH_EXPORT bool compareRelative<unsigned long>(const std::vector<unsigned long>&,
                                                              const std::vector<unsigned long>&, unsigned long);
template OVRIXMATH_EXPORT bool compareRelative<float>(const std::vector<float>&, const std::vector<float>&, float);
template OVRIXMATH_EXPORT bool compareRelative<double>(const std::vector<double>&, const std::vector<double>&, double);

} // namespace math
} // namespace ovrix
