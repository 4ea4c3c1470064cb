// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_016()
{
    static const ovReal64 tab[] = {
        0.307561052768, 0.344792132912,
        2.51587158294, 0.676217819192,
        4.37604721479, 0.713917578164,
        1.36766139391, 1.05470118153,
        5.76179366298, 1.06340720738,
        3.35630952041, 1.22545811423,
        0.424091779954, 1.42083989075,
        4.93656284684, 1.53885766374,
        2.33168911272, 1.61715694318,
        4.10855823729, 1.76643500871,
        1.40114876439, 1.90818891425,
        5.76338490315, 1.98049265542,
        3.19015522395, 2.12862039444,
        0.430479799051, 2.37478526386,
        4.71971069328, 2.60382349087,
        2.12697386122, 2.68532067282,
    };
    static_assert(sizeof(tab) == 16 * 16);
    return tab;
}

} // namespace math
} // namespace ovrix
