#pragma once

#include <OVRIXUtil/Export.h>

#include <boost/random/mersenne_twister.hpp>

namespace ovrix
{

/// The toolkit's one random generator.
///
/// It starts from the engine's default seed; `RandomUniformGenerator::getGen().seed(n)` starts it anew. It is used
/// without a lock: callers that draw on several threads at once must order their calls.
class OVRIXUTIL_EXPORT RandomUniformGenerator
{
public:
    /// The generator, from which all random choices of the toolkit are drawn.
    static boost::random::mt19937& getGen();
};

} // namespace ovrix
