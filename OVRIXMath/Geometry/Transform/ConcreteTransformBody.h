#pragma once

#include <OVRIXMath/Geometry/Transform/ConcreteTransform.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Types.h>

/// @file
/// Bodies of ConcreteTransform, for the source files of the concrete transforms.

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

template <class Family, class Derived, template <class> class Model>
ovUInt32 ConcreteTransform<Family, Derived, Model>::getNbParams() const
{
    return s_nbParams;
}

template <class Family, class Derived, template <class> class Model>
void ConcreteTransform<Family, Derived, Model>::setParams(const Vector& params)
{
    OVRIXMATH_RAISE_UNLESS(params.size() == s_nbParams, typename Family::Messages, 0, params.size(),
                           getName(Derived::s_type), s_nbParams);
    _model.load(params.data().begin());
}

template <class Family, class Derived, template <class> class Model>
void ConcreteTransform<Family, Derived, Model>::setIdentity()
{
    this->setParams(Derived::getIdentityParams());
}

template <class Family, class Derived, template <class> class Model>
Vector ConcreteTransform<Family, Derived, Model>::getParams() const
{
    Vector params(s_nbParams);
    _model.store(params.data().begin());
    return params;
}

template <class Family, class Derived, template <class> class Model>
Vector ConcreteTransform<Family, Derived, Model>::getInvParams() const
{
    Vector params = this->getParams();
    invertOrRaise(params.data().begin());
    return params;
}

template <class Family, class Derived, template <class> class Model>
typename Family::HomogenousMatrix ConcreteTransform<Family, Derived, Model>::getHomogenousMatrix() const
{
    return _model.getMatrix();
}

template <class Family, class Derived, template <class> class Model>
Vector ConcreteTransform<Family, Derived, Model>::getDefaultParams()
{
    Vector params(s_nbParams);
    Model<Family>().store(params.data().begin());
    return params;
}

template <class Family, class Derived, template <class> class Model>
typename Family::HomogenousMatrix ConcreteTransform<Family, Derived, Model>::getMatrixOfInverse() const
{
    ovReal64 params[s_nbParams];
    _model.store(params);
    invertOrRaise(params);
    Model<Family> inverse;
    inverse.load(params);
    return inverse.getMatrix();
}

template <class Family, class Derived, template <class> class Model>
template <class... Reals>
void ConcreteTransform<Family, Derived, Model>::invertInPlace(Reals&... params)
{
    static_assert(sizeof...(params) == s_nbParams);
    ovReal64 values[] = {params...};
    invertOrRaise(values);
    const ovReal64* value = values;
    ((params = *value++), ...);
}

template <class Family, class Derived, template <class> class Model>
bool ConcreteTransform<Family, Derived, Model>::hasInverse() const
{
    ovReal64 params[s_nbParams];
    _model.store(params);
    return Model<Family>::invert(params);
}

template <class Family, class Derived, template <class> class Model>
template <class... Reals>
bool ConcreteTransform<Family, Derived, Model>::areInvertible(Reals... params)
{
    static_assert(sizeof...(params) == s_nbParams);
    ovReal64 values[] = {params...};
    return Model<Family>::invert(values);
}

template <class Family, class Derived, template <class> class Model>
void ConcreteTransform<Family, Derived, Model>::invertOrRaise(ovReal64* params)
{
    OVRIXMATH_RAISE_UNLESS(Model<Family>::invert(params), typename Family::Messages, 3);
}

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
