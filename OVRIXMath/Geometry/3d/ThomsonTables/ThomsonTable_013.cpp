// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_013()
{
    static const ovReal64 tab[] = {
        3.55118184194, 0.631246537514,
        0.0944251885869, 0.647052026521,
        1.96626621876, 0.76674863806,
        4.85122966542, 0.927345760494,
        1.0772298163, 1.41515024062,
        3.10881489484, 1.51746877162,
        5.45747314256, 1.64467636117,
        0.134522749775, 1.75143725325,
        4.18880186677, 1.76861170026,
        2.09204153917, 1.80972257111,
        1.0598199587, 2.4965721426,
        3.1539116193, 2.51211225159,
        5.18849347165, 2.57802943878,
    };
    static_assert(sizeof(tab) == 16 * 13);
    return tab;
}

} // namespace math
} // namespace ovrix
