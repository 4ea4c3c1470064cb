#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

#include <vector>

/// @file
/// Directions spread evenly over the unit sphere, to look at something from all sides. The guide on directions has
/// pictures of them.
///
/// ```cpp
/// std::vector<ovReal64> heights;
/// for (const PhiTheta& direction : computeUniformlyDistOrientations3d(200))
///     heights.push_back(std::cos(direction.theta));
/// ```

namespace ovrix
{
namespace math
{

/// The direction (sin theta cos phi, sin theta sin phi, cos theta), in radians.
struct PhiTheta
{
    ovReal64 phi = 0.0;   ///< azimuth from +x
    ovReal64 theta = 0.0; ///< polar angle from +z
};

/// `nbOrientations` directions, spread over the unit sphere.
///
/// Up to 400 they are those of solveThomsonProblem(), the same at every call. Beyond 400 they are random and
/// independent, with uniform density on the sphere: for each direction in turn, u1 and then u2 are drawn from [0, 1) by
/// the generator of RandomUniformGenerator; phi is 2 pi u1, in [0, 2 pi), and theta is acos(2 u2 - 1), in [0, pi]. No
/// lock is taken then: callers that draw from this generator on several threads must order their calls.
///
/// @return exactly `nbOrientations` directions
/// @throws std::length_error when no vector can hold that many, std::bad_alloc when there is no memory for them; up to
/// 400, boost::lock_error as solveThomsonProblem()
OVRIXMATH_EXPORT std::vector<PhiTheta> computeUniformlyDistOrientations3d(unsigned long nbOrientations);

/// A solution of the Thomson problem: unit charges on the unit sphere whose Coulomb energy, the sum over pairs of
/// 1 / |xi - xj|, is as low as a long search found. It is copied from a table; nothing is computed. The tables of
/// 4, 13, 300 and 400 points stand a little above the minimum that the search found, which is meant.
///
/// Callers on several threads are served one after the other.
///
/// @param nbPoints from 0 to 400; 0 gives an empty set. Above, raises OVRIXMath message 3, once the memory for the
/// result is there
/// @return exactly `nbPoints` directions, whose order means nothing
/// @throws std::length_error when no vector can hold that many, std::bad_alloc when there is no memory for them
/// @throws boost::lock_error when the lock fails
OVRIXMATH_EXPORT std::vector<PhiTheta> solveThomsonProblem(unsigned long nbPoints);

} // namespace math
} // namespace ovrix
