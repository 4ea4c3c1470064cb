#include <OVRIXMath/Graph/WeightRange.h>
#include <OVRIXMath/VectorPack.h>
#include <OVRIXUtil/NumericLimits.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

constexpr double g_infinity = std::numeric_limits<double>::infinity();

/// The largest magnitude; infinite if a number is none.
struct LargestMagnitude
{
    template <int Lanes>
    [[gnu::always_inline]] static inline double run(const double* numbers, std::size_t count)
    {
        using Reals = typename Pack<Lanes>::Reals;
        Reals largest{};
        const std::size_t nbInPacks = count / Lanes * Lanes;
        for (std::size_t i = 0; i < nbInPacks; i += Lanes)
        {
            Reals pack;
            loadPack(pack, numbers + i);
            const Reals magnitude = pack < 0.0 ? -pack : pack;
            const Reals number = magnitude <= g_infinity ? magnitude : Reals{} + g_infinity;
            largest = number > largest ? number : largest;
        }
        double result = 0.0;
        for (int lane = 0; lane < Lanes; ++lane)
            result = std::max(result, largest[lane]);
        for (std::size_t i = nbInPacks; i < count; ++i)
            result = std::isnan(numbers[i]) ? g_infinity : std::max(result, std::abs(numbers[i]));
        return result;
    }
};

/// Whether all numbers are multiples of `1 / unitsPerOne`, a power of two, of which they hold less than 2^51.
struct AreMultiples
{
    template <int Lanes>
    [[gnu::always_inline]] static inline bool run(const double* numbers, std::size_t count, double unitsPerOne)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        constexpr std::size_t block = 256; // numbers between two looks at the outcome
        std::size_t i = 0;
        for (; i + block <= count; i += block)
        {
            Longs others{};
            for (std::size_t part = 0; part < block; part += Lanes)
            {
                Reals pack;
                loadPack(pack, numbers + i + part);
                const Reals units = pack * unitsPerOne;
                others |= (units + s_rounder) - s_rounder != units;
                others |= (units == 0.0) & (pack != 0.0); // far below the smallest number
            }
            if (anyBits<Lanes>(others) != 0)
                return false;
        }
        return std::all_of(numbers + i, numbers + count,
                           [&](double number)
                           {
                               const double units = number * unitsPerOne;
                               const bool bLost = units == 0.0 && number != 0.0;
                               return !bLost && (units + s_rounder) - s_rounder == units;
                           });
    }

private:
    /// Adding and subtracting it rounds to an integer.
    static constexpr double s_rounder = 1.5 * 4503599627370496.0; // 1.5 * 2^52
};

bool areSumsExact(const double* weights, std::size_t count, double magnitude)
{
    if (magnitude == 0.0)
        return true;
    const double unitsPerWeight = std::ldexp(1.0, 49 - std::ilogb(magnitude));
    return unitsPerWeight < g_infinity && runKernel<AreMultiples>(weights, count, unitsPerWeight);
}

} // namespace

WeightRange::WeightRange(const double* weights, std::size_t count)
    : magnitude(runKernel<LargestMagnitude>(weights, count)), bFinite(magnitude <= NumericLimits<double>::s_max / 16.0),
      bExact(bFinite && areSumsExact(weights, count, magnitude))
{
}

} // namespace details
} // namespace math
} // namespace ovrix
