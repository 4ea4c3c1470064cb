#pragma once

#include <OVRIXMath/Export.h>

#include <boost/type_traits/is_arithmetic.hpp>
#include <boost/utility/enable_if.hpp>

#include <vector>

/// @file
/// Rounding, sorting of three values and comparison with a tolerance, for the types that are instantiated at the end.
/// None of these functions raises or allocates.

namespace ovrix
{
namespace math
{

/// `v` rounded to T, half away from zero: `v + 0.5` for `v >= 0`, otherwise `v - 0.5`, computed in U and truncated
/// toward zero.
///
/// The sum is rounded to U before it is truncated: the largest `float` below 0.5 gives 1. What happens at the ends of
/// the range, with s the sum and min and max the range of T:
///
/// | T                            | s in range       | s below min                | s above max                | NaN |
/// |------------------------------|------------------|----------------------------|----------------------------|-----|
/// | 8 and 16 bits, `int`, `long` | s truncated      | min                        | max                        | 0   |
/// | `unsigned int`               | s truncated      | low 32 bits; 0 below -2^63 | low 32 bits; max from 2^63 | 0   |
/// | `unsigned long`              | s truncated      | 0                          | max                        | 0   |
/// | `float`, `double`            | `v`, not rounded | -infinity                  | infinity                   | NaN |
///
/// So `unsigned int` wraps, -1.0 giving 4294967295 and 4294967296.0 giving 0, where the other types stop at their ends.
///
/// @tparam T `signed char`, `unsigned char`, `short`, `unsigned short`, `int`, `unsigned int`, `long`, `unsigned long`,
///         `float` or `double`
/// @tparam U `float` or `double`
template <class T, class U>
OVRIXMATH_EXPORT T round(U v);

/// `v` rounded to T as by round(), limited to the range of T.
///
/// Gives `NumericLimits<T>::s_max` if `v > U(s_max)`, `s_min` if `U(s_min) > v`, otherwise `round<T, U>(v)`; NaN goes
/// to round(). A floating T limits to its finite range. U(s_max) lies above s_max where U cannot hold s_max:
/// `saturatedRound<unsigned int, float>(4294967296.f)` passes the first test and wraps to 0 in round(); the other types
/// give `s_max` there.
///
/// @tparam T, U as for round()
template <class T, class U>
OVRIXMATH_EXPORT T saturatedRound(U v);

/// Sorts three values, comparing by `>` only; a value that compares with none (NaN) stays wherever the comparisons
/// leave it.
///
/// @param[out] minValue, midValue, maxValue the three values ascending; none may be an alias of an input
/// @tparam T `double`, `int` or `unsigned int`
template <class T>
OVRIXMATH_EXPORT void sort(const T& a, const T& b, const T& c, T& minValue, T& midValue, T& maxValue);

/// Whether two values differ by no more than a tolerance: `tol >= |a - b|`.
///
/// `float` is computed in `double`. The 8 and 16-bit types and `bool` are computed in `int`, `int` and `unsigned int`
/// in 64 bits, which holds every difference. `long` and `unsigned long` are computed as `max(a - b, b - a) <= tol` in
/// signed 64 bits that wrap around: two values that are 2^63 apart pass every tolerance, and an `unsigned long`
/// tolerance of 2^63 and above counts as negative. Any NaN, and two infinities of one sign, give `false`.
///
/// @tparam T `bool` or one of the types of round()
template <class T>
OVRIXMATH_EXPORT typename boost::enable_if<typename boost::is_arithmetic<T>::type, bool>::type compare(T a, T b, T tol);

/// compare() on each pair of elements, up to the first that fails; `false` for vectors of different sizes, `true` for
/// two empty ones.
template <class T>
OVRIXMATH_EXPORT typename boost::enable_if<typename boost::is_arithmetic<T>::type, bool>::type
compare(const std::vector<T>& a, const std::vector<T>& b, T tol);

/// Whether two values differ by no more than a tolerance relative to the second.
///
/// If `|b| > tol` the test is `tol >= |a - b| / |b|`. Otherwise `b` counts as zero and the test is absolute on the
/// first value: `tol >= |a|`. Types are widened, and 64-bit values wrap, as for compare().
///
/// The division of the integer types is that of integers: as long as `|a - b| < |b|` the ratio is 0 and passes every
/// `tol` from 0.
///
/// @pre for integer types: `b` is not 0 where `tol` is negative, as the test divides by `|b|` then; an `unsigned long`
///      tolerance of 2^63 and above is a negative one
/// @tparam T `bool` or one of the types of round()
template <class T>
OVRIXMATH_EXPORT typename boost::enable_if<typename boost::is_arithmetic<T>::type, bool>::type compareRelative(T a, T b,
                                                                                                               T tol);

/// compareRelative() on each pair of elements, up to the first that fails; `false` for vectors of different sizes,
/// `true` for two empty ones.
template <class T>
OVRIXMATH_EXPORT typename boost::enable_if<typename boost::is_arithmetic<T>::type, bool>::type
compareRelative(const std::vector<T>& a, const std::vector<T>& b, T tol);

extern template OVRIXMATH_EXPORT signed char round<signed char, float>(float);
extern template OVRIXMATH_EXPORT unsigned char round<unsigned char, float>(float);
extern template OVRIXMATH_EXPORT short round<short, float>(float);
extern template OVRIXMATH_EXPORT unsigned short round<unsigned short, float>(float);
extern template OVRIXMATH_EXPORT int round<int, float>(float);
extern template OVRIXMATH_EXPORT unsigned int round<unsigned int, float>(float);
extern template OVRIXMATH_EXPORT long round<long, float>(float);
extern template OVRIXMATH_EXPORT unsigned long round<unsigned long, float>(float);
extern template OVRIXMATH_EXPORT float round<float, float>(float);
extern template OVRIXMATH_EXPORT double round<double, float>(float);
extern template OVRIXMATH_EXPORT signed char round<signed char, double>(double);
extern template OVRIXMATH_EXPORT unsigned char round<unsigned char, double>(double);
extern template OVRIXMATH_EXPORT short round<short, double>(double);
extern template OVRIXMATH_EXPORT unsigned short round<unsigned short, double>(double);
extern template OVRIXMATH_EXPORT int round<int, double>(double);
extern template OVRIXMATH_EXPORT unsigned int round<unsigned int, double>(double);
extern template OVRIXMATH_EXPORT long round<long, double>(double);
extern template OVRIXMATH_EXPORT unsigned long round<unsigned long, double>(double);
extern template OVRIXMATH_EXPORT float round<float, double>(double);
extern template OVRIXMATH_EXPORT double round<double, double>(double);

extern template OVRIXMATH_EXPORT signed char saturatedRound<signed char, float>(float);
extern template OVRIXMATH_EXPORT unsigned char saturatedRound<unsigned char, float>(float);
extern template OVRIXMATH_EXPORT short saturatedRound<short, float>(float);
extern template OVRIXMATH_EXPORT unsigned short saturatedRound<unsigned short, float>(float);
extern template OVRIXMATH_EXPORT int saturatedRound<int, float>(float);
extern template OVRIXMATH_EXPORT unsigned int saturatedRound<unsigned int, float>(float);
extern template OVRIXMATH_EXPORT long saturatedRound<long, float>(float);
extern template OVRIXMATH_EXPORT unsigned long saturatedRound<unsigned long, float>(float);
extern template OVRIXMATH_EXPORT float saturatedRound<float, float>(float);
extern template OVRIXMATH_EXPORT double saturatedRound<double, float>(float);
extern template OVRIXMATH_EXPORT signed char saturatedRound<signed char, double>(double);
extern template OVRIXMATH_EXPORT unsigned char saturatedRound<unsigned char, double>(double);
extern template OVRIXMATH_EXPORT short saturatedRound<short, double>(double);
extern template OVRIXMATH_EXPORT unsigned short saturatedRound<unsigned short, double>(double);
extern template OVRIXMATH_EXPORT int saturatedRound<int, double>(double);
extern template OVRIXMATH_EXPORT unsigned int saturatedRound<unsigned int, double>(double);
extern template OVRIXMATH_EXPORT long saturatedRound<long, double>(double);
extern template OVRIXMATH_EXPORT unsigned long saturatedRound<unsigned long, double>(double);
extern template OVRIXMATH_EXPORT float saturatedRound<float, double>(double);
extern template OVRIXMATH_EXPORT double saturatedRound<double, double>(double);

extern template OVRIXMATH_EXPORT void sort<double>(const double&, const double&, const double&, double&, double&,
                                                   double&);
extern template OVRIXMATH_EXPORT void sort<int>(const int&, const int&, const int&, int&, int&, int&);
extern template OVRIXMATH_EXPORT void sort<unsigned int>(const unsigned int&, const unsigned int&, const unsigned int&,
                                                         unsigned int&, unsigned int&, unsigned int&);

extern template OVRIXMATH_EXPORT bool compare<bool>(bool, bool, bool);
extern template OVRIXMATH_EXPORT bool compare<signed char>(signed char, signed char, signed char);
extern template OVRIXMATH_EXPORT bool compare<unsigned char>(unsigned char, unsigned char, unsigned char);
extern template OVRIXMATH_EXPORT bool compare<short>(short, short, short);
extern template OVRIXMATH_EXPORT bool compare<unsigned short>(unsigned short, unsigned short, unsigned short);
extern template OVRIXMATH_EXPORT bool compare<int>(int, int, int);
extern template OVRIXMATH_EXPORT bool compare<unsigned int>(unsigned int, unsigned int, unsigned int);
extern template OVRIXMATH_EXPORT bool compare<long>(long, long, long);
extern template OVRIXMATH_EXPORT bool compare<unsigned long>(unsigned long, unsigned long, unsigned long);
extern template OVRIXMATH_EXPORT bool compare<float>(float, float, float);
extern template OVRIXMATH_EXPORT bool compare<double>(double, double, double);

extern template OVRIXMATH_EXPORT bool compare<bool>(const std::vector<bool>&, const std::vector<bool>&, bool);
extern template OVRIXMATH_EXPORT bool compare<signed char>(const std::vector<signed char>&,
                                                           const std::vector<signed char>&, signed char);
extern template OVRIXMATH_EXPORT bool compare<unsigned char>(const std::vector<unsigned char>&,
                                                             const std::vector<unsigned char>&, unsigned char);
extern template OVRIXMATH_EXPORT bool compare<short>(const std::vector<short>&, const std::vector<short>&, short);
extern template OVRIXMATH_EXPORT bool compare<unsigned short>(const std::vector<unsigned short>&,
                                                              const std::vector<unsigned short>&, unsigned short);
extern template OVRIXMATH_EXPORT bool compare<int>(const std::vector<int>&, const std::vector<int>&, int);
extern template OVRIXMATH_EXPORT bool compare<unsigned int>(const std::vector<unsigned int>&,
                                                            const std::vector<unsigned int>&, unsigned int);
extern template OVRIXMATH_EXPORT bool compare<long>(const std::vector<long>&, const std::vector<long>&, long);
extern template OVRIXMATH_EXPORT bool compare<unsigned long>(const std::vector<unsigned long>&,
                                                             const std::vector<unsigned long>&, unsigned long);
extern template OVRIXMATH_EXPORT bool compare<float>(const std::vector<float>&, const std::vector<float>&, float);
extern template OVRIXMATH_EXPORT bool compare<double>(const std::vector<double>&, const std::vector<double>&, double);

extern template OVRIXMATH_EXPORT bool compareRelative<bool>(bool, bool, bool);
extern template OVRIXMATH_EXPORT bool compareRelative<signed char>(signed char, signed char, signed char);
extern template OVRIXMATH_EXPORT bool compareRelative<unsigned char>(unsigned char, unsigned char, unsigned char);
extern template OVRIXMATH_EXPORT bool compareRelative<short>(short, short, short);
extern template OVRIXMATH_EXPORT bool compareRelative<unsigned short>(unsigned short, unsigned short, unsigned short);
extern template OVRIXMATH_EXPORT bool compareRelative<int>(int, int, int);
extern template OVRIXMATH_EXPORT bool compareRelative<unsigned int>(unsigned int, unsigned int, unsigned int);
extern template OVRIXMATH_EXPORT bool compareRelative<long>(long, long, long);
extern template OVRIXMATH_EXPORT bool compareRelative<unsigned long>(unsigned long, unsigned long, unsigned long);
extern template OVRIXMATH_EXPORT bool compareRelative<float>(float, float, float);
extern template OVRIXMATH_EXPORT bool compareRelative<double>(double, double, double);

extern template OVRIXMATH_EXPORT bool compareRelative<bool>(const std::vector<bool>&, const std::vector<bool>&, bool);
extern template OVRIXMATH_EXPORT bool compareRelative<signed char>(const std::vector<signed char>&,
                                                                   const std::vector<signed char>&, signed char);
extern template OVRIXMATH_EXPORT bool compareRelative<unsigned char>(const std::vector<unsigned char>&,
                                                                     const std::vector<unsigned char>&, unsigned char);
extern template OVRIXMATH_EXPORT bool compareRelative<short>(const std::vector<short>&, const std::vector<short>&,
                                                             short);
extern template OVRIXMATH_EXPORT bool
compareRelative<unsigned short>(const std::vector<unsigned short>&, const std::vector<unsigned short>&, unsigned short);
extern template OVRIXMATH_EXPORT bool compareRelative<int>(const std::vector<int>&, const std::vector<int>&, int);
extern template OVRIXMATH_EXPORT bool compareRelative<unsigned int>(const std::vector<unsigned int>&,
                                                                    const std::vector<unsigned int>&, unsigned int);
extern template OVRIXMATH_EXPORT bool compareRelative<long>(const std::vector<long>&, const std::vector<long>&, long);
extern template OVRIXMATH_EXPORT bool compareRelative<unsigned long>(const std::vector<unsigned long>&,
                                                                     const std::vector<unsigned long>&, unsigned long);
extern template OVRIXMATH_EXPORT bool compareRelative<float>(const std::vector<float>&, const std::vector<float>&,
                                                             float);
extern template OVRIXMATH_EXPORT bool compareRelative<double>(const std::vector<double>&, const std::vector<double>&,
                                                              double);

} // namespace math
} // namespace ovrix
