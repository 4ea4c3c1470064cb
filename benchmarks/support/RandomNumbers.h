#pragma once

#include <random>

namespace ovrix
{
namespace bench
{

/// Random numbers that peers in Python have too: those of `numpy.random.RandomState(seed).random_sample()`.
class RandomNumbers
{
public:
    explicit RandomNumbers(unsigned int seed) : _generator(seed) {}

    /// In [0, 1[.
    double uniform()
    {
        const double high = static_cast<double>(_generator() >> 5);
        const double low = static_cast<double>(_generator() >> 6);
        return (high * 67108864.0 + low) / 9007199254740992.0;
    }

private:
    std::mt19937 _generator;
};

} // namespace bench
} // namespace ovrix
