// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_005()
{
    static const ovReal64 tab[] = {
        0.618818193219, 0.974946230055,
        2.64390285963, 0.996411366565,
        5.14062622383, 1.29837296096,
        3.7604108468, 2.16664642353,
        0.953082620759, 2.5190265322,
    };
    static_assert(sizeof(tab) == 16 * 5);
    return tab;
}

} // namespace math
} // namespace ovrix
