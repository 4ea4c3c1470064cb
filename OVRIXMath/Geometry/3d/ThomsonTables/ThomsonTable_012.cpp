// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_012()
{
    static const ovReal64 tab[] = {
        4.89449457379, 0.205092456663,
        2.19614020215, 0.91947979944,
        0.792803472339, 0.981303517246,
        3.49960325876, 1.13314314209,
        5.84030267019, 1.2212869435,
        4.67513711033, 1.30696681017,
        1.53354445674, 1.83462584341,
        2.6987100166, 1.92030571008,
        0.358010605171, 2.00844951149,
        3.93439612592, 2.16028913634,
        5.33773285574, 2.22211285414,
        1.7529019202, 2.93650019692,
    };
    static_assert(sizeof(tab) == 16 * 12);
    return tab;
}

} // namespace math
} // namespace ovrix
