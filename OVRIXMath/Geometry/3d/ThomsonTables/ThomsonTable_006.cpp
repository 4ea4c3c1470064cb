// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_006()
{
    static const ovReal64 tab[] = {
        0.602087316496, 0.43605261775,
        3.49678663693, 1.14641549997,
        5.1102879353, 1.47659069355,
        1.96869528171, 1.66500196003,
        0.355193983341, 1.99517715361,
        3.74367997008, 2.70554003583,
    };
    static_assert(sizeof(tab) == 16 * 6);
    return tab;
}

} // namespace math
} // namespace ovrix
