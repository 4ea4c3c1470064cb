#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>
#include <OVRIXSerialization/SerializationItem.h>

#include <boost/numeric/ublas/matrix.hpp>
#include <boost/numeric/ublas/vector.hpp>

/// @file
/// Archive forms of vectors and matrices. Each stands in a section of the item's name.
///
/// | Type | In the section |
/// |---|---|
/// | `Vector` | item "size" (`ovUInt32`), then the elements |
/// | `Matrix` | items "nbRows" and "nbColumns" (`ovUInt32`), then the elements row after row |
/// | `bounded_vector<double, N>` | an item for each element: the first N of "x", "y", "z", "w" |
/// | `bounded_matrix<double, N, N>` | an item for each element row after row: "mXX", "mXY" and so on |
///
/// The elements of the first two are items "value" in a text archive and one block in any other. Both forms keep every
/// bit of an element, those of a NaN too. A container is as it was before when reading it raises; one of another size
/// is resized. Writing a bounded vector or matrix that has been resized to fewer elements than its type has raises an
/// OVRIXSerializationException.

namespace ovrix
{

/// @{
/// Writes or reads a vector or matrix of dynamic size.
OVRIXMATH_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::Vector>& item);
OVRIXMATH_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::Vector>& item);
OVRIXMATH_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::Matrix>& item);
OVRIXMATH_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::Matrix>& item);
/// @}

/// @{
/// Writes or reads a vector of fixed size.
OVRIXMATH_EXPORT BaseOArchive&
operator<<(BaseOArchive& archive, const SerializationOItem<boost::numeric::ublas::bounded_vector<double, 2>>& item);
OVRIXMATH_EXPORT BaseIArchive&
operator>>(BaseIArchive& archive, const SerializationIItem<boost::numeric::ublas::bounded_vector<double, 2>>& item);
OVRIXMATH_EXPORT BaseOArchive&
operator<<(BaseOArchive& archive, const SerializationOItem<boost::numeric::ublas::bounded_vector<double, 3>>& item);
OVRIXMATH_EXPORT BaseIArchive&
operator>>(BaseIArchive& archive, const SerializationIItem<boost::numeric::ublas::bounded_vector<double, 3>>& item);
OVRIXMATH_EXPORT BaseOArchive&
operator<<(BaseOArchive& archive, const SerializationOItem<boost::numeric::ublas::bounded_vector<double, 4>>& item);
OVRIXMATH_EXPORT BaseIArchive&
operator>>(BaseIArchive& archive, const SerializationIItem<boost::numeric::ublas::bounded_vector<double, 4>>& item);
/// @}

/// @{
/// Writes or reads a matrix of fixed size.
OVRIXMATH_EXPORT BaseOArchive&
operator<<(BaseOArchive& archive, const SerializationOItem<boost::numeric::ublas::bounded_matrix<double, 2, 2>>& item);
OVRIXMATH_EXPORT BaseIArchive&
operator>>(BaseIArchive& archive, const SerializationIItem<boost::numeric::ublas::bounded_matrix<double, 2, 2>>& item);
OVRIXMATH_EXPORT BaseOArchive&
operator<<(BaseOArchive& archive, const SerializationOItem<boost::numeric::ublas::bounded_matrix<double, 3, 3>>& item);
OVRIXMATH_EXPORT BaseIArchive&
operator>>(BaseIArchive& archive, const SerializationIItem<boost::numeric::ublas::bounded_matrix<double, 3, 3>>& item);
OVRIXMATH_EXPORT BaseOArchive&
operator<<(BaseOArchive& archive, const SerializationOItem<boost::numeric::ublas::bounded_matrix<double, 4, 4>>& item);
OVRIXMATH_EXPORT BaseIArchive&
operator>>(BaseIArchive& archive, const SerializationIItem<boost::numeric::ublas::bounded_matrix<double, 4, 4>>& item);
/// @}

} // namespace ovrix
