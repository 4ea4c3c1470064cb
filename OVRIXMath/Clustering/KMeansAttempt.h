#pragma once

#include <OVRIXMath/Clustering/DistanceBounds.h>
#include <OVRIXMath/Clustering/SampleTable.h>
#include <OVRIXMath/Types.h>

#include <cstddef>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The computation of computeKMeansAttempt(), for any number of attempts on the same samples.
///
/// Labels, centres and iterations are those of the plain steps to the last bit, but most distances are not computed:
///
/// - Each sample keeps an upper bound of the distance to its own centre and a lower bound of that to all others, which
///   are widened by what the centres move (Hamerly, 2010). As long as they are apart, or the own centre is nearer than
///   half the way to the next one, the label stays.
/// - Otherwise only centres are compared that are near enough to the own one to be nearest or second (Newling and
///   Fleuret, 2016), many samples of one cluster at a time.
/// - A centre is computed anew only if a sample joined or left.
///
/// The bounds are those of DistanceBounds, which allow for rounding. Where samples or centres are out of their range,
/// all samples are compared with all centres.
class KMeansAttempt
{
public:
    /// @param samples which must outlive the object
    explicit KMeansAttempt(const SampleTable& samples);

    /// See computeKMeansAttempt().
    ///
    /// After the first call, calls with the same number of clusters allocate nothing.
    ovUInt32 run(ovUInt32 nbMaxIteration, VectorColl& centers, UInt32Vector& assignments);

private:
    void start(const VectorColl& centers, UInt32Vector& assignments);
    bool assignAll();
    bool assignUnsure();
    void listUnsure();
    void sortUnsureByLabel();
    double listNearCenters(const ovUInt32* samples, std::size_t nbSamples, ovUInt32 label, std::size_t& nbNear);
    bool assignBlock(const ovUInt32* samples, std::size_t nbSamples, const double* block, std::size_t nbNear,
                     double leastFar);
    void computeCenterDistances();
    void moveCenters();
    void computeMoves();

    const SampleTable& _samples;
    const DistanceBounds _bounds;
    const bool _bSamplesInRange;

    std::size_t _nbClusters;
    bool _bInRange;               ///< whether bounds are kept
    bool _bCentersCompared;       ///< whether distances between centres are computed
    std::vector<double> _centers; ///< row by row
    std::vector<double> _formerCenters;
    std::vector<unsigned char> _isChanged; ///< by centre: whether to compute it anew
    std::vector<double> _populations;
    std::vector<double> _moves;           ///< by centre: upper bound of its last move
    std::vector<double> _othersMoves;     ///< by centre: the largest of the others' moves
    std::vector<double> _centerDistances; ///< lower bounds, row by row
    std::vector<double> _halfGaps;        ///< by centre: lower bound of half the distance to the next one

    ovUInt32* _labels;
    std::vector<double> _upper;    ///< by sample: upper bound of the distance to its own centre
    std::vector<double> _lower;    ///< by sample: lower bound of the distance to all other centres
    std::vector<ovUInt32> _unsure; ///< samples whose label may change
    std::vector<ovUInt32> _unsureByLabel;
    std::vector<std::size_t> _labelEnds; ///< by label: end of its samples in `_unsureByLabel`
    std::vector<double> _block;          ///< some samples, see fillBlock()
    std::vector<ovUInt32> _nearCenters;
};

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
