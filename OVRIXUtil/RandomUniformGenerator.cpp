#include <OVRIXUtil/RandomUniformGenerator.h>

namespace ovrix
{

boost::random::mt19937& RandomUniformGenerator::getGen()
{
    static boost::random::mt19937 g_generator;
    return g_generator;
}

} // namespace ovrix
