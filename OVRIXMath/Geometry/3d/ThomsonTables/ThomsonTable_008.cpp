// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_008()
{
    static const ovReal64 tab[] = {
        1.19862201769, 0.754666615042,
        5.44982263852, 0.765434714925,
        2.66005268671, 1.22980931817,
        3.99889380836, 1.23767039736,
        0.187769101522, 1.82253778602,
        1.53393100397, 2.12058082629,
        5.12328177171, 2.13293285936,
        3.31909492187, 2.5088485011,
    };
    static_assert(sizeof(tab) == 16 * 8);
    return tab;
}

} // namespace math
} // namespace ovrix
