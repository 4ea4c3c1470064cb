#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXSerialization/SerializationItem.h>

#include <string>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Kinds of spatial transforms. The enumerators' own names stand in messages and in text archives.
enum eGeometricTransform3dType : int
{
    eGT3DT_Translation,
    eGT3DT_Rotation,
    eGT3DT_Rigid,
    eGT3DT_Scale,
    eGT3DT_Similarity,
    eGT3DT_AnisotropicScale,
    eGT3DT_Affine,
    eGT3DT_Homography
};

/// Name of the enumerator, or its number for a value outside of the enumeration.
OVRIXMATH_EXPORT std::string getName(eGeometricTransform3dType type);

} // namespace transform
} // namespace math

/// Writes the enumerator's name into a text archive, its value as `int` into a binary one.
///
/// @throws std::logic_error for a value outside of the enumeration
OVRIXMATH_EXPORT BaseOArchive& operator<<(BaseOArchive& archive,
                                          const SerializationOItem<math::transform::eGeometricTransform3dType>& item);

/// Reads what the operator above wrote.
///
/// @throws OVRIXSerializationException message 26 for an unknown name, 27 for an unknown value
OVRIXMATH_EXPORT BaseIArchive& operator>>(BaseIArchive& archive,
                                          const SerializationIItem<math::transform::eGeometricTransform3dType>& item);

} // namespace ovrix
