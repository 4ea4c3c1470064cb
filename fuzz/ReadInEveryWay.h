#pragma once

#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/DataPartition/DataPartitionUtils.h>
#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXMath/Estimation/EstimationResults.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Geometry/2d/Transform/GeometricTransform2dUtils.h>
#include <OVRIXMath/Geometry/3d/Transform/GeometricTransform3dUtils.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraSerializationOperators.h>
#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXSerialization/BaseIArchive.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXSerialization/OVRIXSerializationException.h>

#include <cstddef>
#include <cstdlib>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <support/PipeStream.h>
#include <vector>

/// @file
/// What the fuzz targets do with an input. An OVRIXSerializationException is what broken input ends in; anything else
/// that is thrown ends the program, which is what a fuzzer looks for.

namespace ovrix
{
namespace fuzz
{

/// Reads a block of any size.
inline void readBlock(BaseIArchive& archive, std::size_t size)
{
    std::string bytes;
    archive.readArray<char>(size,
                            [&](std::size_t count, std::size_t capacity)
                            {
                                bytes.reserve(capacity);
                                bytes.resize(count);
                                return &bytes[0];
                            });
}

template <class T>
void readItem(BaseIArchive& archive, const std::string& name)
{
    T value{};
    archive >> makeIItem(name, value);
}

/// Walks through an archive of unknown content.
inline void walk(BaseIArchive& archive)
{
    while (true)
    {
        const ArchiveEntry entry = archive.peekEntry();
        switch (entry.type)
        {
        case eAE_Bool:
            readItem<bool>(archive, entry.name);
            break;
        case eAE_Int32:
            readItem<int>(archive, entry.name);
            break;
        case eAE_UInt32:
            readItem<unsigned int>(archive, entry.name);
            break;
        case eAE_Int64:
            readItem<long>(archive, entry.name);
            break;
        case eAE_UInt64:
            readItem<unsigned long>(archive, entry.name);
            break;
        case eAE_Double:
            readItem<double>(archive, entry.name);
            break;
        case eAE_String:
            readItem<std::string>(archive, entry.name);
            break;
        case eAE_Block:
            readBlock(archive, entry.blockSize);
            break;
        case eAE_Section:
            archive.openSection(entry.name);
            break;
        case eAE_SectionEnd:
            archive.closeSection();
            break;
        case eAE_ArchiveEnd:
            return;
        }
    }
}

/// Hands a new archive on the bytes to `read`.
template <class Archive, class Stream, class Read>
void attempt(const std::string& bytes, const Read& read)
{
    try
    {
        Stream stream(bytes);
        Archive archive(stream);
        read(archive);
    }
    catch (const OVRIXSerializationException&)
    {
    }
}

/// Reads the item "value" as a T.
template <class Archive, class T>
void readAs(const std::string& bytes)
{
    const auto read = [](BaseIArchive& archive) { readItem<T>(archive, "value"); };
    attempt<Archive, std::istringstream>(bytes, read);
    attempt<Archive, test::PipeStream>(bytes, read);
}

/// Draws sub-sets from a partition that has been restored: all of them, unless they are many.
inline void drawSubSets(math::BaseDataPartition& partition)
{
    const math::DataSet data(8, math::Vector(1, 0.0));
    math::DataSet subSet;
    for (int i = 0; i < 100 && partition.createSubSet(data, subSet); ++i)
    {
    }
}

/// Uses what has been restored. A call may raise what it raises on every object in that state.
template <class Archive, class T, class Use>
void readAndUse(const std::string& bytes, const Use& use)
{
    T value{};
    attempt<Archive, std::istringstream>(bytes, [&](BaseIArchive& archive) { archive >> makeIItem("value", value); });
    try
    {
        use(value);
    }
    catch (const math::OVRIXMathException&)
    {
    }
}

/// Uses a configuration as if it came from a caller. Once it has answered that it is initialised, its values are such
/// as a caller could have set, so that nothing is left to raise.
inline void useConfig(const math::EstimationConfig& config)
{
    const math::eRobustEstimationType type = config.getRobustEstimationType();
    const auto use = [&]() noexcept
    {
        math::EstimationConfig copy(config);
        copy.setSuccessRatio(config.getSuccessRatio());
        copy.setDataPartition(config.getDataPartitionPtr());
        if (type == math::eRET_LMS)
            copy.initLMS(config.getExpectedOutlierRatio());
        else if (type != math::eRET_NonRobust)
            copy.initMSAC(config.getOutlierThreshold(), config.getExpectedOutlierRatio());
    };
    use();
    drawSubSets(*config.getDataPartitionPtr());
}

/// Asks for what follows from results. Once they have answered that they are those of a success, nothing is left to
/// raise.
inline void useResults(const math::EstimationResults& results)
{
    results.getNbInliers();
    if (!results.getEstimationStatus())
        return;
    const auto use = [&]() noexcept
    {
        results.getInliersRms();
        results.getInlierRatio();
        if (results.getNbInliers() > results.getNbInputData())
            std::abort();
    };
    use();
}

/// Configurations, partitions and results that are used, also where reading them has raised half-way.
template <class Archive>
void readAndUseEstimations(const std::string& bytes)
{
    const auto draw = [](math::BaseDataPartition& partition) { drawSubSets(partition); };
    readAndUse<Archive, math::RegularGridPartition>(bytes, draw);
    readAndUse<Archive, math::AdaptiveGridPartition>(bytes, draw);
    readAndUse<Archive, math::EstimationConfig>(bytes, useConfig);
    readAndUse<Archive, math::EstimationResults>(bytes, useResults);
}

/// A histogram that is asked everything that does not grow with its population.
template <class Archive>
void readAndUseHistograms(const std::string& bytes)
{
    const auto use = [](const math::BaseHistogram& histogram)
    {
        std::ostringstream text;
        text << histogram;
        histogram.getQuantileClassIdx(0.5);
        histogram.getMaxPopulationClassIdx();
        histogram.findLocalMaxima(false, math::eEBP_Include, 0.0, 0);
        histogram.findLocalDilatedMinima(1, math::eEBP_Exclude, 0.0, 0);
    };
    readAndUse<Archive, math::Histogram<false>>(bytes, use);
    readAndUse<Archive, math::Histogram<true>>(bytes, use);
}

/// Reads the bytes as each of those types.
template <class Archive, class... Types>
void readAsEach(const std::string& bytes)
{
    (readAs<Archive, Types>(bytes), ...);
}

template <std::size_t N>
using BoundedVector = boost::numeric::ublas::bounded_vector<double, N>;

template <std::size_t N>
using BoundedMatrix = boost::numeric::ublas::bounded_matrix<double, N, N>;

/// Whether the archive begins with an item or a section "value". All others are refused there by every kind of value
/// alike.
template <class Archive>
bool beginsWithValue(const std::string& bytes)
{
    bool bFound = false;
    attempt<Archive, std::istringstream>(bytes, [&bFound](BaseIArchive& archive)
                                         { bFound = archive.peekEntry().name == "value"; });
    return bFound;
}

/// Walks through the bytes as an archive, and reads them as one that holds an item "value", for every kind of value
/// that there is.
template <class Archive>
void readInEveryWay(const std::string& bytes)
{
    attempt<Archive, std::istringstream>(bytes, walk);
    attempt<Archive, test::PipeStream>(bytes, walk);
    if (!beginsWithValue<Archive>(bytes))
        return;
    readAsEach<Archive, std::string, BoolResult, std::vector<double>, std::vector<float>, std::vector<signed char>,
               std::vector<unsigned short>, std::vector<long>, std::vector<bool>, std::vector<std::string>,
               std::set<std::set<unsigned int>>, std::map<double, std::vector<unsigned int>>>(bytes);
    readAsEach<Archive, math::Vector, math::Matrix, BoundedVector<2>, BoundedVector<3>, BoundedVector<4>,
               BoundedMatrix<2>, BoundedMatrix<3>, BoundedMatrix<4>>(bytes);
    readAsEach<Archive, std::vector<math::eRobustEstimationType>, std::vector<math::eDataPartitionType>,
               std::vector<math::transform::eGeometricTransform2dType>,
               std::vector<math::transform::eGeometricTransform3dType>, std::vector<math::eHistogramOutOfBoundsPolicy>>(
        bytes);
    readAsEach<Archive, math::DataPartitionPtr, math::EstimationConfig, math::EstimationResults,
               boost::shared_ptr<math::BaseHistogram>>(bytes);
    readAndUseEstimations<Archive>(bytes);
    readAndUseHistograms<Archive>(bytes);
}

} // namespace fuzz
} // namespace ovrix
