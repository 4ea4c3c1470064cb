#include <OVRIXMath/Geometry/2d/Transform/GeometricTransform2dUtils.h>
#include <OVRIXSerialization/EnumerationSerialization.h>

namespace ovrix
{

namespace
{

constexpr const char* g_typeNames[] = {
    "eGT2DT_Translation", "eGT2DT_Rotation",         "eGT2DT_Rigid",  "eGT2DT_Scale",
    "eGT2DT_Similarity",  "eGT2DT_AnisotropicScale", "eGT2DT_Affine", "eGT2DT_Homography",
};
constexpr EnumerationNames g_types(g_typeNames);

} // namespace

std::string math::transform::getName(eGeometricTransform2dType type)
{
    const char* const name = g_types.find(type);
    return name ? name : std::to_string(static_cast<int>(type));
}

BaseOArchive& operator<<(BaseOArchive& archive,
                         const SerializationOItem<math::transform::eGeometricTransform2dType>& item)
{
    return g_types.write(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive,
                         const SerializationIItem<math::transform::eGeometricTransform2dType>& item)
{
    return g_types.read(archive, item);
}

} // namespace ovrix
