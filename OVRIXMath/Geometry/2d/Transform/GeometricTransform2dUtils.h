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

/// Kinds of planar transforms. The enumerators' own names stand in messages and in text archives.
enum eGeometricTransform2dType : int
{
    eGT2DT_Translation,
    eGT2DT_Rotation,
    eGT2DT_Rigid,
    eGT2DT_Scale,
    eGT2DT_Similarity,
    eGT2DT_AnisotropicScale,
    eGT2DT_Affine,
    eGT2DT_Homography
};

/// Name of the enumerator, or its number for a value outside of the enumeration.
OVRIXMATH_EXPORT std::string getName(eGeometricTransform2dType type);

} // namespace transform
} // namespace math

/// Writes the enumerator's name into a text archive, its value as `int` into a binary one.
///
/// @throws std::logic_error for a value outside of the enumeration
OVRIXMATH_EXPORT BaseOArchive& operator<<(BaseOArchive& archive,
                                          const SerializationOItem<math::transform::eGeometricTransform2dType>& item);

/// Reads what the operator above wrote.
///
/// @throws OVRIXSerializationException message 26 for an unknown name, 27 for an unknown value
OVRIXMATH_EXPORT BaseIArchive& operator>>(BaseIArchive& archive,
                                          const SerializationIItem<math::transform::eGeometricTransform2dType>& item);

} // namespace ovrix
