// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_004()
{
    static const ovReal64 tab[] = {
        6.14493784079, 1.78424401065,
        1.74373774699, 1.11096498909,
        3.62583890805, 2.46323415905,
        4.2895380567, 0.637118861508,
    };
    static_assert(sizeof(tab) == 16 * 4);
    return tab;
}

} // namespace math
} // namespace ovrix
