#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <boost/noncopyable.hpp>

#include <map>
#include <utility>

namespace ovrix
{
namespace math
{
namespace transform
{
/// The transforms of a family by their type: the operations of Transform2dFactory and Transform3dFactory.
///
/// The concrete classes register themselves while the library is being loaded. After that the factory is only read, so
/// that all operations but registerTransform() may run on many threads.
///
/// ```cpp
/// const GeometricTransform2dPtr pTurn = Transform2dFactory::createTransform(eGT2DT_Rotation, Vector(1, 0.5));
/// ```
///
/// @tparam Family what the planar or the spatial family brings to the operations
template <class Family>
class OVRIXMATH_EXPORT TransformFactory : private boost::noncopyable
{
public:
    /// eGeometricTransform2dType or eGeometricTransform3dType.
    using Type = typename Family::Type;

    /// GeometricTransform2dPtr or GeometricTransform3dPtr.
    using TransformPtr = typename Family::TransformPtr;

    /// Makes a transform in its default state.
    using Creator = TransformPtr (*)();

    /// The one factory of the family; its first construction is guarded by a mutex.
    static typename Family::Factory& getInstance();

    /// Whether transforms of that type can be created.
    static ovBool isRegistred(const Type& type);

    /// Number of parameters of that type.
    ///
    /// @throws OVRIXMathException message 2 of the family with the type's name when the type is not registered
    static ovUInt32 getNbParams(const Type& type);

    /// A new transform in its default state.
    ///
    /// @throws OVRIXMathException message 2 of the family with the type's name when the type is not registered
    static TransformPtr createTransform(const Type& type);

    /// A new transform with these parameters.
    ///
    /// @throws OVRIXMathException message 2 of the family with the type's name when the type is not registered, message
    /// 0 when the size of `params` is wrong
    static TransformPtr createTransform(const Type& type, const Vector& params);

    /// Adds a type. Must not be called while other threads use the factory.
    ///
    /// @throws OVRIXMathException message 1 of the family with the type's name when the type is registered already; its
    /// entry stays as it is
    static void registerTransform(const Type& type, ovUInt32 nbParams, Creator creator);

protected:
    TransformFactory() = default;
    ~TransformFactory() = default;

private:
    /// Number of parameters and creator.
    using Entry = std::pair<ovUInt32, Creator>;

    static const Entry& getEntry(const Type& type);

    std::map<Type, Entry> _entries;
};

} // namespace transform
} // namespace math
} // namespace ovrix
