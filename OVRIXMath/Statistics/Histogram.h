#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Statistics/BaseHistogram.h>
#include <OVRIXUtil/Types.h>

#include <boost/noncopyable.hpp>

namespace ovrix
{

namespace math
{
template <bool g_bDataIntegral>
class Histogram;
} // namespace math

extern template class OVRIXMATH_EXPORT SerializableClass<math::Histogram<false>, math::BaseHistogram>;
extern template class OVRIXMATH_EXPORT SerializableClass<math::Histogram<true>, math::BaseHistogram>;

namespace math
{

/// A histogram of integers or of real numbers, see BaseHistogram.
///
/// @tparam g_bDataIntegral whether the data are integers, which makes the range one longer, see computeHistogramRange()
template <bool g_bDataIntegral>
class OVRIXMATH_EXPORT Histogram : public CopyableObject<Histogram<g_bDataIntegral>, BaseHistogram>
{
public:
    /// A histogram that is not initialised.
    Histogram();
    Histogram(const Histogram& other);
    Histogram& operator=(const Histogram& other);
    ~Histogram() override;

    /// `g_bDataIntegral`.
    ovBool areDataIntegral() const override;

private:
    friend SerializableAccess;
    static constexpr const char* s_className =
        g_bDataIntegral ? "ovrix::math::Histogram<true>" : "ovrix::math::Histogram<false>";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items&, Self&)
    {
    }
    void copyMembers(const Histogram&) {}
};

/// A new Histogram for the DynamicObjectFactory; the caller owns it.
template <bool g_bDataIntegral>
OVRIXMATH_EXPORT BaseDynamicObject* HistogramNewCreatorFcn();

/// Registers a Histogram with the DynamicObjectFactory for as long as the library is loaded.
template <bool g_bDataIntegral>
class OVRIXMATH_EXPORT HistogramDynamicRegistrator : private boost::noncopyable
{
public:
    HistogramDynamicRegistrator();
    ~HistogramDynamicRegistrator();

    static const HistogramDynamicRegistrator g_classRegistrator; ///< the one that registers
};

extern template class OVRIXMATH_EXPORT Histogram<false>;
extern template class OVRIXMATH_EXPORT Histogram<true>;
extern template OVRIXMATH_EXPORT BaseDynamicObject* HistogramNewCreatorFcn<false>();
extern template OVRIXMATH_EXPORT BaseDynamicObject* HistogramNewCreatorFcn<true>();
extern template class OVRIXMATH_EXPORT HistogramDynamicRegistrator<false>;
extern template class OVRIXMATH_EXPORT HistogramDynamicRegistrator<true>;

} // namespace math
} // namespace ovrix
