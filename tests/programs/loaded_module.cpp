// A library that a process loads and unloads, see loading.cpp: it uses OVRIXMath, and has a class of its own.

#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dFactory.h>
#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXSerialization/SerializableObject.h>
#include <OVRIXUtil/DynamicRegistrator.h>

#include <string>

namespace
{

using namespace ovrix;

class Loaded : public UncopyableObject<Loaded, BaseSerializationObject>
{
private:
    friend SerializableAccess;
    static constexpr const char* s_className = "Loaded";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_value", self._value);
    }

    int _value = 0;
};

const DynamicRegistrator<Loaded> g_classRegistrator;

} // namespace

/// Whether the library does its work.
extern "C" [[gnu::visibility("default")]] bool useLibrary()
{
    using namespace ovrix::math;
    const bool bCreated = DynamicObjectFactory::getInstance().tryCreateShared("ovrix::math::EstimationConfig") &&
                          DynamicObjectFactory::getInstance().tryCreateShared("Loaded") &&
                          transform::Transform3dFactory::createTransform(transform::eGT3DT_Rotation);
    try
    {
        EstimationConfig().setSuccessRatio(2.0);
    }
    catch (const OVRIXMathException& exception)
    {
        return bCreated && std::string(exception.what()) == "Invalid success ratio value 2.000000, should be in ]0, 1[";
    }
    return false;
}
