// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_011()
{
    static const ovReal64 tab[] = {
        0.92329168214, 0.230840945726,
        4.4437935087, 0.910246444079,
        2.80953675355, 0.953296477497,
        5.96217831588, 1.10143288033,
        1.2197862517, 1.24918245945,
        3.71316905335, 1.78334668945,
        5.02805680394, 1.87398824781,
        2.47333287884, 1.92397529216,
        0.0388041196351, 2.0629921152,
        1.30763726525, 2.27535694334,
        4.11792071128, 2.86854780188,
    };
    static_assert(sizeof(tab) == 16 * 11);
    return tab;
}

} // namespace math
} // namespace ovrix
