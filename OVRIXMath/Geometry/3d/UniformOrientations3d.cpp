#include <OVRIXMath/Geometry/3d/ThomsonTables/ThomsonTables.h>
#include <OVRIXMath/Geometry/3d/UniformOrientations3d.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/OVRIXMathLogMessages.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/uniform_real_distribution.hpp>
#include <boost/thread/lock_guard.hpp>
#include <boost/thread/mutex.hpp>

#include <cmath>
#include <cstring>
#include <type_traits>

namespace ovrix
{
namespace math
{

namespace
{

constexpr ovReal64 g_twoPi = 6.283185307179586;

/// Guards the copy of a table.
struct ThomsonProblemSolutionsMutex
{
    static boost::mutex& get()
    {
        static boost::mutex g_mutex;
        return g_mutex;
    }
};

// The mutex exists before any thread runs.
const bool g_bMutexCreated = (ThomsonProblemSolutionsMutex::get(), true);

} // namespace

std::vector<PhiTheta> computeUniformlyDistOrientations3d(unsigned long nbOrientations)
{
    if (nbOrientations <= details::g_nbThomsonTables)
        return solveThomsonProblem(nbOrientations);

    std::vector<PhiTheta> orientations(nbOrientations);
    boost::random::mt19937& generator = RandomUniformGenerator::getGen();
    const boost::random::uniform_real_distribution<ovReal64> unit(0.0, 1.0);
    for (PhiTheta& orientation : orientations)
    {
        const ovReal64 u1 = unit(generator);
        const ovReal64 u2 = unit(generator);
        orientation.phi = g_twoPi * u1;
        orientation.theta = std::acos(2.0 * u2 - 1.0); // uniform on the sphere, not over the angle
    }
    return orientations;
}

std::vector<PhiTheta> solveThomsonProblem(unsigned long nbPoints)
{
    std::vector<PhiTheta> solution(nbPoints);
    OVRIXMATH_RAISE_UNLESS(nbPoints <= details::g_nbThomsonTables, eOVRIXMathMessage, 3);

    const boost::lock_guard<boost::mutex> lock(ThomsonProblemSolutionsMutex::get());
    const ovReal64* const table = details::selectThomsonTable(nbPoints);
    static_assert(std::is_trivially_copyable<PhiTheta>::value && sizeof(PhiTheta) == 2 * sizeof(ovReal64),
                  "a record is phi and theta, as in the tables");
    if (nbPoints > 0)
        std::memcpy(static_cast<void*>(solution.data()), table, nbPoints * sizeof(PhiTheta));
    return solution;
}

} // namespace math
} // namespace ovrix
