#include <OVRIXMath/Clustering/ClusterNumbering.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

UInt32Vector numberByPopulation(ovUInt32 nbClusters, UInt32Vector& assignments)
{
    std::vector<std::pair<ovUInt32, ovUInt32>> populations(nbClusters);
    for (ovUInt32 label = 0; label < nbClusters; ++label)
        populations[label].second = label;
    for (const ovUInt32 label : assignments)
    {
        if (label < nbClusters)
            ++populations[label].first;
    }
    std::sort(populations.begin(), populations.end(), std::greater<>());

    UInt32Vector formerLabels(nbClusters);
    UInt32Vector newLabels(nbClusters);
    for (ovUInt32 label = 0; label < nbClusters; ++label)
    {
        formerLabels[label] = populations[label].second;
        newLabels[populations[label].second] = label;
    }
    for (ovUInt32& label : assignments)
    {
        if (label < nbClusters)
            label = newLabels[label];
    }
    return formerLabels;
}

bool isSamePartition(ovUInt32 nbClusters, const UInt32Vector& first, const UInt32Vector& second)
{
    if (first.size() != second.size())
        return false;
    UInt32Vector toSecond(nbClusters, nbClusters);
    UInt32Vector toFirst(nbClusters, nbClusters);
    for (std::size_t i = 0; i < first.size(); ++i)
    {
        const ovUInt32 a = first[i];
        const ovUInt32 b = second[i];
        if (a >= nbClusters || b >= nbClusters)
            return false;
        if (toSecond[a] == nbClusters && toFirst[b] == nbClusters)
        {
            toSecond[a] = b;
            toFirst[b] = a;
        }
        else if (toSecond[a] != b)
            return false;
    }
    return true;
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
