// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_002()
{
    static const ovReal64 tab[] = {
        0, 0,
        0, 3.14159265358,
    };
    static_assert(sizeof(tab) == 16 * 2);
    return tab;
}

} // namespace math
} // namespace ovrix
