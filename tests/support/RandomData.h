#pragma once

#include <OVRIXMath/Types.h>

#include <boost/random/mersenne_twister.hpp>
#include <boost/random/normal_distribution.hpp>
#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <cstddef>

namespace ovrix
{
namespace test
{

/// Random numbers of a test, from a generator and a seed of its own.
class RandomData
{
public:
    explicit RandomData(unsigned int seed) : _gen(seed) {}

    /// In [low, high[.
    double real(double low, double high)
    {
        return boost::random::uniform_real_distribution<double>(low, high)(_gen);
    }

    /// Of mean 0.
    double normal(double sigma)
    {
        return boost::random::normal_distribution<double>(0.0, sigma)(_gen);
    }

    /// In [low, high].
    unsigned int integer(unsigned int low, unsigned int high)
    {
        return boost::random::uniform_int_distribution<unsigned int>(low, high)(_gen);
    }

    /// Elements in [low, high[.
    math::Vector vector(std::size_t size, double low, double high)
    {
        math::Vector values(size);
        for (double& value : values)
            value = real(low, high);
        return values;
    }

    /// Data with elements in [low, high[.
    math::DataSet dataSet(std::size_t nbData, std::size_t size, double low, double high)
    {
        math::DataSet data(nbData);
        for (math::Vector& datum : data)
            datum = vector(size, low, high);
        return data;
    }

private:
    boost::random::mt19937 _gen;
};

} // namespace test
} // namespace ovrix
