// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_001()
{
    static const ovReal64 tab[] = {
        0, 0,
    };
    static_assert(sizeof(tab) == 16 * 1);
    return tab;
}

} // namespace math
} // namespace ovrix
