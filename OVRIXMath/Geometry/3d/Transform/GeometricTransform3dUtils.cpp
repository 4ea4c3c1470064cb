#include <OVRIXMath/Geometry/3d/Transform/GeometricTransform3dUtils.h>
#include <OVRIXSerialization/EnumerationSerialization.h>

namespace ovrix
{

namespace
{

constexpr const char* g_typeNames[] = {
    "eGT3DT_Translation", "eGT3DT_Rotation",         "eGT3DT_Rigid",  "eGT3DT_Scale",
    "eGT3DT_Similarity",  "eGT3DT_AnisotropicScale", "eGT3DT_Affine", "eGT3DT_Homography",
};
constexpr EnumerationNames g_types(g_typeNames);

} // namespace

std::string math::transform::getName(eGeometricTransform3dType type)
{
    const char* const name = g_types.find(type);
    return name ? name : std::to_string(static_cast<int>(type));
}

BaseOArchive& operator<<(BaseOArchive& archive,
                         const SerializationOItem<math::transform::eGeometricTransform3dType>& item)
{
    return g_types.write(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive,
                         const SerializationIItem<math::transform::eGeometricTransform3dType>& item)
{
    return g_types.read(archive, item);
}

} // namespace ovrix
