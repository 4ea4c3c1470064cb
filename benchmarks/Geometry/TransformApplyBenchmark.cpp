// A million points through each transform, beside the formula written by hand: behind one virtual call per point, as a
// caller of the base has it, and bare, inside of the caller's loop.

#include "TransformComparison.h"

namespace ovrix
{
namespace bench
{

namespace
{

class VirtualTransform2d
{
public:
    virtual ~VirtualTransform2d() = default;
    virtual void apply(double& x, double& y) const = 0;
};

class VirtualTransform3d
{
public:
    virtual ~VirtualTransform3d() = default;
    virtual void apply(double& x, double& y, double& z) const = 0;
};

template <class Plain>
class Virtual2d : public VirtualTransform2d
{
public:
    explicit Virtual2d(const Plain& plain) : _plain(plain) {}

    void apply(double& x, double& y) const override
    {
        _plain.apply(x, y);
    }

private:
    Plain _plain;
};

template <class Plain>
class Virtual3d : public VirtualTransform3d
{
public:
    explicit Virtual3d(const Plain& plain) : _plain(plain) {}

    void apply(double& x, double& y, double& z) const override
    {
        _plain.apply(x, y, z);
    }

private:
    Plain _plain;
};

template <class Plain>
void compareWithVirtual(benchmark::State& state)
{
    const Plain plain(typename Plain::Transform().getParams());
    if constexpr (g_bPlanar<typename Plain::Transform>)
    {
        const Virtual2d<Plain> peer(plain);
        compareApply<typename Plain::Transform>(state, [&peer](std::vector<double>& points)
                                                { applyToPlane(hideType<VirtualTransform2d>(peer), points); });
    }
    else
    {
        const Virtual3d<Plain> peer(plain);
        compareApply<typename Plain::Transform>(state, [&peer](std::vector<double>& points)
                                                { applyToSpace(hideType<VirtualTransform3d>(peer), points); });
    }
}

template <class Plain>
void compareWithInline(benchmark::State& state)
{
    const Plain plain(typename Plain::Transform().getParams());
    compareApply<typename Plain::Transform>(state,
                                            [&plain](std::vector<double>& points)
                                            {
                                                if constexpr (g_bPlanar<typename Plain::Transform>)
                                                    applyToPlane(plain, points);
                                                else
                                                    applyToSpace(plain, points);
                                            });
}

template <class... Plains>
bool registerPlain()
{
    (registerApply(Plains::s_name, "virtual", compareWithVirtual<Plains>), ...);
    (registerApply(Plains::s_name, "inline", compareWithInline<Plains>), ...);
    return true;
}

const bool g_bRegistered =
    registerPlain<PlainTranslation2d, PlainRotation2d, PlainRigid2d, PlainScale2d, PlainSimilarity2d,
                  PlainAnisotropicScale2d, PlainAffine2d, PlainHomography2d, PlainTranslation3d, PlainRotation3d,
                  PlainRigid3d, PlainScale3d, PlainSimilarity3d, PlainAnisotropicScale3d, PlainAffine3d,
                  PlainHomography3d>();

} // namespace

} // namespace bench
} // namespace ovrix
