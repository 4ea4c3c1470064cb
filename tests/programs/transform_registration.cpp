// A process that only links the library, with no concrete transform in sight: the factories know all of them before the
// program's own static initialisers run.

#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dFactory.h>

using namespace ovrix::math::transform;

namespace
{

constexpr int g_nbTypes = 8;

/// Number of types that the factory creates with the number of parameters that it tells.
template <class Factory>
int countTypes()
{
    int nbTypes = 0;
    for (int value = 0; value < g_nbTypes; ++value)
    {
        const auto type = static_cast<typename Factory::Type>(value);
        if (!Factory::isRegistred(type))
            continue;
        if (Factory::createTransform(type)->getNbParams() == Factory::getNbParams(type))
            ++nbTypes;
    }
    return nbTypes;
}

const int g_nbTypes2d = countTypes<Transform2dFactory>();
const int g_nbTypes3d = countTypes<Transform3dFactory>();

} // namespace

int main()
{
    return g_nbTypes2d == g_nbTypes && g_nbTypes3d == g_nbTypes ? 0 : 1;
}
