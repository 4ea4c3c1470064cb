#pragma once

#include <OVRIXMath/Statistics/ExtremaUtils.h>

/// @file
/// The instances of the templates of ExtremaUtils.h, which includes this file: all that there are.

namespace ovrix
{
namespace math
{

extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<signed char, unsigned int>(const std::vector<signed char>&,
                                                                                        const eExtremaBorderPolicy&,
                                                                                        const eExtremaType&,
                                                                                        std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned char, unsigned int>(const std::vector<unsigned char>&, const eExtremaBorderPolicy&,
                                                    const eExtremaType&, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<short, unsigned int>(const std::vector<short>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned short, unsigned int>(const std::vector<unsigned short>&, const eExtremaBorderPolicy&,
                                                     const eExtremaType&, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<int, unsigned int>(const std::vector<int>&,
                                                                                const eExtremaBorderPolicy&,
                                                                                const eExtremaType&,
                                                                                std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned int, unsigned int>(const std::vector<unsigned int>&, const eExtremaBorderPolicy&,
                                                   const eExtremaType&, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<long, unsigned int>(const std::vector<long>&,
                                                                                 const eExtremaBorderPolicy&,
                                                                                 const eExtremaType&,
                                                                                 std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned long, unsigned int>(const std::vector<unsigned long>&, const eExtremaBorderPolicy&,
                                                    const eExtremaType&, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<float, unsigned int>(const std::vector<float>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<double, unsigned int>(const std::vector<double>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<signed char, unsigned long>(const std::vector<signed char>&, const eExtremaBorderPolicy&,
                                                   const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned char, unsigned long>(const std::vector<unsigned char>&, const eExtremaBorderPolicy&,
                                                     const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<short, unsigned long>(const std::vector<short>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned short, unsigned long>(const std::vector<unsigned short>&, const eExtremaBorderPolicy&,
                                                      const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<int, unsigned long>(const std::vector<int>&,
                                                                                 const eExtremaBorderPolicy&,
                                                                                 const eExtremaType&,
                                                                                 std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned int, unsigned long>(const std::vector<unsigned int>&, const eExtremaBorderPolicy&,
                                                    const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<long, unsigned long>(const std::vector<long>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned long, unsigned long>(const std::vector<unsigned long>&, const eExtremaBorderPolicy&,
                                                     const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<float, unsigned long>(const std::vector<float>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<double, unsigned long>(const std::vector<double>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned long>&);

extern template OVRIXMATH_EXPORT void findLocalExtrema<signed char, unsigned int>(const std::vector<signed char>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned char, unsigned int>(const std::vector<unsigned char>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<short, unsigned int>(const std::vector<short>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned short, unsigned int>(const std::vector<unsigned short>&,
                                                                                     const eExtremaBorderPolicy&,
                                                                                     const eExtremaType&,
                                                                                     std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<int, unsigned int>(const std::vector<int>&,
                                                                          const eExtremaBorderPolicy&,
                                                                          const eExtremaType&,
                                                                          std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned int, unsigned int>(const std::vector<unsigned int>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<long, unsigned int>(const std::vector<long>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&,
                                                                           std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned long, unsigned int>(const std::vector<unsigned long>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<float, unsigned int>(const std::vector<float>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<double, unsigned int>(const std::vector<double>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<signed char, unsigned long>(const std::vector<signed char>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned char, unsigned long>(const std::vector<unsigned char>&,
                                                                                     const eExtremaBorderPolicy&,
                                                                                     const eExtremaType&,
                                                                                     std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<short, unsigned long>(const std::vector<short>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalExtrema<unsigned short, unsigned long>(const std::vector<unsigned short>&, const eExtremaBorderPolicy&,
                                                const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<int, unsigned long>(const std::vector<int>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&,
                                                                           std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned int, unsigned long>(const std::vector<unsigned int>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<long, unsigned long>(const std::vector<long>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned long, unsigned long>(const std::vector<unsigned long>&,
                                                                                     const eExtremaBorderPolicy&,
                                                                                     const eExtremaType&,
                                                                                     std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<float, unsigned long>(const std::vector<float>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<double, unsigned long>(const std::vector<double>&,
                                                                              const eExtremaBorderPolicy&,
                                                                              const eExtremaType&,
                                                                              std::vector<unsigned long>&);

extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<signed char>(const std::vector<signed char>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&, const signed char&,
                                                                           ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned char>(const std::vector<unsigned char>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&, const unsigned char&,
                                                                             ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<short>(const std::vector<short>&,
                                                                     const eExtremaBorderPolicy&, const eExtremaType&,
                                                                     const short&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned short>(const std::vector<unsigned short>&,
                                                                              const eExtremaBorderPolicy&,
                                                                              const eExtremaType&,
                                                                              const unsigned short&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<int>(const std::vector<int>&, const eExtremaBorderPolicy&,
                                                                   const eExtremaType&, const int&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned int>(const std::vector<unsigned int>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&, const unsigned int&,
                                                                            ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<long>(const std::vector<long>&,
                                                                    const eExtremaBorderPolicy&, const eExtremaType&,
                                                                    const long&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned long>(const std::vector<unsigned long>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&, const unsigned long&,
                                                                             ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<float>(const std::vector<float>&,
                                                                     const eExtremaBorderPolicy&, const eExtremaType&,
                                                                     const float&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<double>(const std::vector<double>&,
                                                                      const eExtremaBorderPolicy&, const eExtremaType&,
                                                                      const double&, ExtremaRangeColl&);

extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, signed char>(const eExtremaType&, ovReal64, signed char,
                                         ExtremumCoords<unsigned int, signed char>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                           ExtremumCoords<unsigned int, unsigned char>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, short>(const eExtremaType&, ovReal64, short,
                                                                         ExtremumCoords<unsigned int, short>,
                                                                         std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, unsigned short>(const eExtremaType&, ovReal64, unsigned short,
                                            ExtremumCoords<unsigned int, unsigned short>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, int>(const eExtremaType&, ovReal64, int,
                                                                       ExtremumCoords<unsigned int, int>,
                                                                       std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                          ExtremumCoords<unsigned int, unsigned int>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, long>(const eExtremaType&, ovReal64, long,
                                                                        ExtremumCoords<unsigned int, long>,
                                                                        std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                           ExtremumCoords<unsigned int, unsigned long>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, float>(const eExtremaType&, ovReal64, float,
                                                                         ExtremumCoords<unsigned int, float>,
                                                                         std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, double>(const eExtremaType&, ovReal64, double,
                                                                          ExtremumCoords<unsigned int, double>,
                                                                          std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, signed char>(const eExtremaType&, ovReal64, signed char,
                                          ExtremumCoords<unsigned long, signed char>, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                            ExtremumCoords<unsigned long, unsigned char>, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, short>(const eExtremaType&, ovReal64, short,
                                                                          ExtremumCoords<unsigned long, short>,
                                                                          std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned short>(const eExtremaType&, ovReal64, unsigned short,
                                             ExtremumCoords<unsigned long, unsigned short>,
                                             std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, int>(const eExtremaType&, ovReal64, int,
                                                                        ExtremumCoords<unsigned long, int>,
                                                                        std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                           ExtremumCoords<unsigned long, unsigned int>, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, long>(const eExtremaType&, ovReal64, long,
                                                                         ExtremumCoords<unsigned long, long>,
                                                                         std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                            ExtremumCoords<unsigned long, unsigned long>, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, float>(const eExtremaType&, ovReal64, float,
                                                                          ExtremumCoords<unsigned long, float>,
                                                                          std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, double>(const eExtremaType&, ovReal64, double,
                                                                           ExtremumCoords<unsigned long, double>,
                                                                           std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, signed char>(const eExtremaType&, ovReal64, signed char,
                                         ExtremumCoords<ExtremaRange, signed char>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                           ExtremumCoords<ExtremaRange, unsigned char>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, short>(const eExtremaType&, ovReal64, short,
                                                                         ExtremumCoords<ExtremaRange, short>,
                                                                         std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, unsigned short>(const eExtremaType&, ovReal64, unsigned short,
                                            ExtremumCoords<ExtremaRange, unsigned short>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, int>(const eExtremaType&, ovReal64, int,
                                                                       ExtremumCoords<ExtremaRange, int>,
                                                                       std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                          ExtremumCoords<ExtremaRange, unsigned int>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, long>(const eExtremaType&, ovReal64, long,
                                                                        ExtremumCoords<ExtremaRange, long>,
                                                                        std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                           ExtremumCoords<ExtremaRange, unsigned long>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, float>(const eExtremaType&, ovReal64, float,
                                                                         ExtremumCoords<ExtremaRange, float>,
                                                                         std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, double>(const eExtremaType&, ovReal64, double,
                                                                          ExtremumCoords<ExtremaRange, double>,
                                                                          std::vector<ExtremaRange>&);

extern template OVRIXMATH_EXPORT void
extractBasicExtremaCoords<signed char>(const std::vector<signed char>&, const ExtremaRange&, ovReal64&, signed char&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned char>(const std::vector<unsigned char>&,
                                                                               const ExtremaRange&, ovReal64&,
                                                                               unsigned char&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<short>(const std::vector<short>&, const ExtremaRange&,
                                                                       ovReal64&, short&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned short>(const std::vector<unsigned short>&,
                                                                                const ExtremaRange&, ovReal64&,
                                                                                unsigned short&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<int>(const std::vector<int>&, const ExtremaRange&,
                                                                     ovReal64&, int&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned int>(const std::vector<unsigned int>&,
                                                                              const ExtremaRange&, ovReal64&,
                                                                              unsigned int&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<long>(const std::vector<long>&, const ExtremaRange&,
                                                                      ovReal64&, long&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned long>(const std::vector<unsigned long>&,
                                                                               const ExtremaRange&, ovReal64&,
                                                                               unsigned long&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<float>(const std::vector<float>&, const ExtremaRange&,
                                                                       ovReal64&, float&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<double>(const std::vector<double>&, const ExtremaRange&,
                                                                        ovReal64&, double&);

} // namespace math
} // namespace ovrix
