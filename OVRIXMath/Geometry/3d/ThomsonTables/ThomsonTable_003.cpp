// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_003()
{
    static const ovReal64 tab[] = {
        0, 0,
        0, 2.09439510239,
        3.14159265358, 2.09439510239,
    };
    static_assert(sizeof(tab) == 16 * 3);
    return tab;
}

} // namespace math
} // namespace ovrix
