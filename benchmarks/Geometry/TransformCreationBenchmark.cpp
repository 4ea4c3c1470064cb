// A transform from the factory, by its type, beside one that is made as its own class.

#include "CallComparison.h"
#include "TransformComparison.h"

#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dFactory.h>

#include <boost/make_shared.hpp>

namespace ovrix
{
namespace bench
{

namespace
{

constexpr int g_nbRepetitions = 1000;

template <class Transform>
using FactoryOf =
    std::conditional_t<g_bPlanar<Transform>, math::transform::Transform2dFactory, math::transform::Transform3dFactory>;

template <class Plain>
void createBesideMakeShared(benchmark::State& state)
{
    using Transform = typename Plain::Transform;
    using Ptr = typename FactoryOf<Transform>::TransformPtr;
    compareWithPeer(
        state, [] { benchmark::DoNotOptimize(FactoryOf<Transform>::createTransform(Transform::s_type)); },
        [] { benchmark::DoNotOptimize(Ptr(boost::make_shared<Transform>())); }, g_nbRepetitions);
}

template <class Plain>
void createBesideNew(benchmark::State& state)
{
    using Transform = typename Plain::Transform;
    compareWithPeer(
        state, [] { benchmark::DoNotOptimize(FactoryOf<Transform>::createTransform(Transform::s_type)); },
        [] { benchmark::DoNotOptimize(std::make_unique<Transform>()); }, g_nbRepetitions);
}

/// With parameters, beside the concrete class with the same.
template <class Plain>
void createWithParams(benchmark::State& state)
{
    using Transform = typename Plain::Transform;
    using Ptr = typename FactoryOf<Transform>::TransformPtr;
    const Vector params = Transform().getParams();
    compareWithPeer(
        state,
        [&params] { benchmark::DoNotOptimize(FactoryOf<Transform>::createTransform(Transform::s_type, params)); },
        [&params]
        {
            const Ptr pTransform = boost::make_shared<Transform>();
            pTransform->setParams(params);
            benchmark::DoNotOptimize(pTransform.get());
        },
        g_nbRepetitions);
}

/// The inverse, beside the same steps with the concrete class.
template <class Plain>
void createInverted(benchmark::State& state)
{
    using Transform = typename Plain::Transform;
    using Ptr = typename FactoryOf<Transform>::TransformPtr;
    const Transform transform;
    compareWithPeer(
        state, [&transform] { benchmark::DoNotOptimize(transform.createInverted()); },
        [&transform]
        {
            const Ptr pInverted = boost::make_shared<Transform>();
            pInverted->setParams(transform.getInvParams());
            benchmark::DoNotOptimize(pInverted.get());
        },
        g_nbRepetitions);
}

template <class... Plains>
bool registerAll()
{
    const auto add = [](const char* task, const char* className, void (*function)(benchmark::State&))
    { benchmark::RegisterBenchmark((std::string(task) + "/" + className).c_str(), function)->Apply(inRounds); };
    (add("createBesideMakeShared", Plains::s_name, createBesideMakeShared<Plains>), ...);
    (add("createBesideNew", Plains::s_name, createBesideNew<Plains>), ...);
    (add("createWithParams", Plains::s_name, createWithParams<Plains>), ...);
    (add("createInverted", Plains::s_name, createInverted<Plains>), ...);
    return true;
}

// From the smallest to the largest of each family, and one with angles.
const bool g_bRegistered = registerAll<PlainTranslation2d, PlainRigid2d, PlainHomography2d, PlainTranslation3d,
                                       PlainRigid3d, PlainHomography3d>();

} // namespace

} // namespace bench
} // namespace ovrix
