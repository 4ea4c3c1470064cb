#include <OVRIXMath/Statistics/Histogram.h>

namespace ovrix
{
namespace math
{

template <bool g_bDataIntegral>
Histogram<g_bDataIntegral>::Histogram() = default;

template <bool g_bDataIntegral>
Histogram<g_bDataIntegral>::Histogram(const Histogram& other) : Histogram()
{
    if (this != &other) // as in `Histogram<true> x(x)`
        this->copy(other);
}

template <bool g_bDataIntegral>
Histogram<g_bDataIntegral>& Histogram<g_bDataIntegral>::operator=(const Histogram& other)
{
    this->copy(other);
    return *this;
}

template <bool g_bDataIntegral>
Histogram<g_bDataIntegral>::~Histogram() = default;

template <bool g_bDataIntegral>
ovBool Histogram<g_bDataIntegral>::areDataIntegral() const
{
    return g_bDataIntegral;
}

template <bool g_bDataIntegral>
BaseDynamicObject* HistogramNewCreatorFcn()
{
    return Histogram<g_bDataIntegral>::createNewObject();
}

template <bool g_bDataIntegral>
HistogramDynamicRegistrator<g_bDataIntegral>::HistogramDynamicRegistrator()
{
    DynamicObjectFactory::getInstance().registerClass(
        Histogram<g_bDataIntegral>::getTypeName(), &HistogramNewCreatorFcn<g_bDataIntegral>,
        &DynamicRegistrator<Histogram<g_bDataIntegral>>::sharedCreatorFcn);
}

template <bool g_bDataIntegral>
HistogramDynamicRegistrator<g_bDataIntegral>::~HistogramDynamicRegistrator()
{
    DynamicObjectFactory::getInstance().unRegisterClass(Histogram<g_bDataIntegral>::getTypeName());
}

template <bool g_bDataIntegral>
const HistogramDynamicRegistrator<g_bDataIntegral> HistogramDynamicRegistrator<g_bDataIntegral>::g_classRegistrator;

template class Histogram<false>;
template class Histogram<true>;
template OVRIXMATH_EXPORT BaseDynamicObject* HistogramNewCreatorFcn<false>();
template OVRIXMATH_EXPORT BaseDynamicObject* HistogramNewCreatorFcn<true>();
template class HistogramDynamicRegistrator<false>;
template class HistogramDynamicRegistrator<true>;

} // namespace math

template class SerializableClass<math::Histogram<false>, math::BaseHistogram>;
template class SerializableClass<math::Histogram<true>, math::BaseHistogram>;

} // namespace ovrix
