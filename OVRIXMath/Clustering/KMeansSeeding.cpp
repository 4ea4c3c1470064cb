#include <OVRIXMath/Clustering/KMeansSeeding.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <algorithm>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

KMeansSeeding::KMeansSeeding(const SampleTable& samples) : _samples(samples), _cumulated(samples.size()) {}

void KMeansSeeding::draw(ovUInt32 nbClusters, UInt32Vector& seeds)
{
    seeds.clear();
    if (_samples.size() == 0)
        return;
    boost::random::mt19937& generator = RandomUniformGenerator::getGen();
    const ovUInt32 last = static_cast<ovUInt32>(_samples.size() - 1);
    seeds.push_back(boost::random::uniform_int_distribution<ovUInt32>(0, last)(generator));
    while (seeds.size() < nbClusters)
    {
        const double* latest = _samples[seeds.back()];
        double total = 0.0;
        for (std::size_t i = 0; i < _samples.size(); ++i)
        {
            total += squaredDistance(_samples[i], latest, _samples.getDimension());
            _cumulated[i] = total;
        }
        // The sums only grow, so the first one that is not below the number drawn is found by bisection.
        const double drawn = boost::random::uniform_real_distribution<double>(0.0, total)(generator);
        const auto found = std::lower_bound(_cumulated.begin(), _cumulated.end(), drawn);
        seeds.push_back(static_cast<ovUInt32>(found - _cumulated.begin()));
    }
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
