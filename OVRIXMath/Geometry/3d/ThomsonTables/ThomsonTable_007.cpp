// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_007()
{
    static const ovReal64 tab[] = {
        0.759572196278, 0.511212806142,
        4.37520714554, 0.785282095685,
        2.63520361584, 1.40399874634,
        5.77679626943, 1.73759390724,
        1.09313360873, 1.73976864458,
        4.12455432427, 2.02092906788,
        1.9215420872, 2.92245925829,
    };
    static_assert(sizeof(tab) == 16 * 7);
    return tab;
}

} // namespace math
} // namespace ovrix
