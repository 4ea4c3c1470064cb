#pragma once

#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXMath/Clustering/Kernel/LinearKernel.h>
#include <OVRIXMath/Clustering/Kernel/PolynomialKernel.h>
#include <OVRIXMath/Clustering/Kernel/RadialBasisKernel.h>
#include <OVRIXMath/Clustering/Kernel/SigmoidKernel.h>
#include <OVRIXMath/Clustering/KernelKMeansClustering.h>
#include <OVRIXMath/Clustering/SpectralClustering.h>
#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Statistics/ExtremaUtils.h>
#include <OVRIXMath/Statistics/HistogramStructures.h>
#include <OVRIXMath/Statistics/HistogramUtils.h>
#include <OVRIXMath/Types.h>
#include <OVRIXSerialization/SerializableObject.h>

#include <boost/shared_ptr.hpp>

#include <iosfwd>
#include <vector>

namespace ovrix
{

namespace math
{

class BaseHistogram;
} // namespace math

extern template class OVRIXMATH_EXPORT SerializableClass<math::BaseHistogram, BaseSerializationObject>;

namespace math
{

/// Populations of bins.
using UInt64Vector = std::vector<unsigned long>;

/// A histogram over a regular grid: an interval [first, last] cut into classes of one width, the last of which may be
/// shorter, with a population for each, and bins for what lies outside where the policy gives it some.
///
/// A class is a part of the interval; a bin is an entry of the table of populations. Class i stands at bin
/// `i + getInBoundsBinOffset()`; which bins there are besides is told by eHistogramOutOfBoundsPolicy. The middle of bin
/// b is `(b - offset + 0.5) * width + first`, also of the bins outside of the interval, and that of the last class the
/// middle between its start and `last`, unless it is the only class.
///
/// ```cpp
/// UInt64Vector population(256);
/// for (const unsigned char grey : pixels)
///     ++population[grey];
/// Histogram<true> histogram;
/// histogram.initFromExisting(0.0, 255.0, 1.0, population, eHOOBP_Ignored);
/// const ovUInt32 median = histogram.getQuantileClassIdx(0.5);
/// ```
///
/// Everything that reads bins raises Statistics message 8 while there are none: before the histogram has been set up,
/// and after clear() or clearData().
///
/// Constant functions fill a table of cumulated populations where it is still empty, without a lock: a histogram must
/// not be read on two threads before updateCumulated().
///
/// Reading from an archive raises an OVRIXSerializationException when the archive was written by a newer version of the
/// class, or holds tables and indices that do not fit together. Whenever reading raises, the histogram is as after
/// clear().
class OVRIXMATH_EXPORT BaseHistogram : public CopiedClass<BaseHistogram, BaseSerializationObject>
{
public:
    BaseHistogram(const BaseHistogram&) = delete;
    BaseHistogram& operator=(const BaseHistogram&) = delete;
    ~BaseHistogram() override;

    /// Whether the data are integers, see computeHistogramRange().
    virtual ovBool areDataIntegral() const = 0;

    /// @name Setting up
    /// Each begins with clear().
    /// @{

    /// Sets up classes of a width; all populations are 0.
    ///
    /// @throws OVRIXMathException, Statistics message 12 unless `first < last`, then 11 unless `0 < binWidth`, then 13
    ///         where computeHistogramNbClasses() gives 0; the histogram is not initialised then
    void updateHistogramParams(ovReal64 first, ovReal64 last, ovReal64 binWidth,
                               const eHistogramOutOfBoundsPolicy& policy);

    /// Sets up a number of classes; all populations are 0. A literal number of classes is to be written `10u`: an `int`
    /// fits this form as badly as the other.
    ///
    /// @throws OVRIXMathException, Statistics message 12 unless `first < last`, then 13 for 0 classes; the histogram is
    ///         not initialised then
    void updateHistogramParams(ovReal64 first, ovReal64 last, ovUInt32 nbClasses,
                               const eHistogramOutOfBoundsPolicy& policy);

    /// Sets up classes of a width and takes their populations.
    ///
    /// The width that a histogram of a number of classes tells may give one class more here, by rounding.
    ///
    /// @param population one entry per bin, those outside of the interval included, see computeHistogramNbBins(); not
    ///        the population of this histogram, which is emptied first
    /// @throws OVRIXMathException as updateHistogramParams() does, then Statistics message 9 for a population of
    ///         another size, which leaves all populations 0
    void initFromExisting(ovReal64 first, ovReal64 last, ovReal64 binWidth, const UInt64Vector& population,
                          const eHistogramOutOfBoundsPolicy& policy);

    /// Makes the histogram not initialised: no classes and no bins; the other values stay, behind closed getters.
    void clear();

    /// Drops the bins; classes and bounds stay.
    void clearData();

    /// @}

    /// @name Checks
    /// @{

    /// Raises Statistics message 8 when there are no classes.
    void checkInit() const;

    /// Raises Statistics message 6 unless `classIdx` is below the number of classes.
    void checkClassIdx(ovUInt32 classIdx) const;

    /// Raises Statistics message 5 unless `binIdx` is below the number of bins.
    void checkBinIdx(ovUInt32 binIdx) const;

    /// @}

    /// @name Values
    /// Each raises Statistics message 8 when there are no classes.
    /// @{

    /// Lower bound of the first class.
    ovReal64 getFirstHistoValue() const;

    /// Upper bound of the last class as it was asked for; integers equal to it belong to the last class.
    ovReal64 getLastHistoValue() const;

    /// Width of a class.
    ovReal64 getBinWidth() const;

    /// Number of classes.
    ovUInt32 getNbClasses() const;

    /// Number of bins.
    ovUInt32 getNbBins() const;

    /// Bin of the data below the interval, `NumericLimits<ovUInt32>::s_max` for none.
    ovUInt32 getLowerOutOfBoundsBinIdx() const;

    /// Bin of the data above the interval, `NumericLimits<ovUInt32>::s_max` for none.
    ovUInt32 getUpperOutOfBoundsBinIdx() const;

    /// Bin of class 0.
    ovUInt32 getInBoundsBinOffset() const;

    /// Population of each bin.
    const UInt64Vector& getHistogramPopulation() const;

    /// Population of each bin and all before it, as it stands: empty until updateCumulated() or a query has filled it.
    const UInt64Vector& getCumulatedHistogramPopulation() const;

    /// @}

    /// @name Queries
    /// @{

    /// Computes the cumulated populations; the last of them is the total, bins outside of the interval included.
    void updateCumulated() const;

    /// The first bin of the largest population among the first n bins, with n classes. The offset of class 0 is not
    /// counted in, which is meant: under `eHOOBP_Dedicated` bin 0, outside of the interval, takes part and the last
    /// class does not, and the result is one more than the index of a class.
    ovUInt32 getMaxPopulationClassIdx() const;

    /// The first class at which the cumulated population reaches the share `q` of the total. What lies in a bin before
    /// the classes counts; when the bins behind them keep all classes from reaching the share, it is the last class.
    ///
    /// @param q in [0, 1], else raises Statistics message 7
    ovUInt32 getQuantileClassIdx(ovReal64 q) const;

    /// Share of each bin in the total; NaN when the total is 0.
    void getFrequencies(std::vector<double>& out) const;

    /// Share of each bin and all before it in the total; NaN when the total is 0.
    void getCumulatedFrequencies(std::vector<double>& out) const;

    /// Middle of each bin.
    std::vector<double> getBinMidValues() const;

    /// @}

    /// @name Extrema
    /// Over all bins, see ExtremaUtils.h; `minDistance` and `valueThreshold` are those of filterExtrema(), in units of
    /// the values and of the population.
    /// @{

    /// Bins of the local maxima, ascending.
    ///
    /// @param bStrict whether by findLocalStrictExtrema(), otherwise by findLocalExtrema()
    clustering::UInt32Vector findLocalMaxima(bool bStrict, const eExtremaBorderPolicy& policy, ovReal64 minDistance,
                                             unsigned long valueThreshold) const;

    /// Bins of the local minima, ascending; arguments as for findLocalMaxima().
    clustering::UInt32Vector findLocalMinima(bool bStrict, const eExtremaBorderPolicy& policy, ovReal64 minDistance,
                                             unsigned long valueThreshold) const;

    /// The maxima that rise by more than `dilateFactor`, see findLocalDilatedExtrema(), ascending by their ranges of
    /// bins.
    ///
    /// The population of a range is that of all its bins, its coordinate their mean middle, weighted by the
    /// populations, and 0 for a range of empty bins. A coordinate outside of the interval gives the bin outside of it.
    ///
    /// @throws OVRIXMathException, Statistics message 5, under `eEBP_Periodic` for a range that runs across the end
    std::vector<HistogramExtrema> findLocalDilatedMaxima(unsigned long dilateFactor, const eExtremaBorderPolicy& policy,
                                                         ovReal64 minDistance, unsigned long valueThreshold) const;

    /// The minima that are deeper than `dilateFactor`; all else as for findLocalDilatedMaxima().
    std::vector<HistogramExtrema> findLocalDilatedMinima(unsigned long dilateFactor, const eExtremaBorderPolicy& policy,
                                                         ovReal64 minDistance, unsigned long valueThreshold) const;

    /// @}

    /// @name Clusters
    /// Of the data behind the histogram: each counted one is a sample of one coordinate, the middle of its bin. Memory
    /// and time grow with the total population.
    ///
    /// The result is done unless all attempts failed, to be asked by `isClusteringDone()`. Data that lie in one bin
    /// make equal samples, which cannot be cut in two, see KMeansClustering.
    ///
    /// @param nbClusters at least 1, else raises Clustering message 11; above the number of samples raises Statistics
    ///                   message 14
    /// @param bIncludeOutOfBounds whether bins outside of the interval count
    /// @{

    /// The samples, by ascending bin.
    void collectClusteringData(bool bIncludeOutOfBounds, clustering::VectorColl& data) const;

    /// See KMeansClustering.
    clustering::KMeansClusteringPtr applyKMeansClustering(ovUInt32 nbClusters, bool bIncludeOutOfBounds,
                                                          const clustering::KMeansClusteringConfig& config) const;

    /// See KernelKMeansClustering.
    ///
    /// @tparam KernelType LinearKernel, PolynomialKernel, RadialBasisKernel or SigmoidKernel
    template <class KernelType>
    boost::shared_ptr<clustering::KernelKMeansClustering<KernelType>>
    applyKernelKMeansClustering(ovUInt32 nbClusters, const KernelType& kernel, bool bIncludeOutOfBounds,
                                const clustering::KernelKMeansClusteringConfig& config) const;

    /// See SpectralClustering, whose memory grows with the square of the total population.
    ///
    /// @tparam KernelType LinearKernel, PolynomialKernel, RadialBasisKernel or SigmoidKernel
    template <class KernelType>
    boost::shared_ptr<clustering::SpectralClustering<KernelType>>
    applySpectralClustering(ovUInt32 nbClusters, const KernelType& kernel, bool bIncludeOutOfBounds,
                            const clustering::KernelKMeansClusteringConfig& config) const;

    /// @}

    /// Fits a Gaussian to the points (middle, population) of the bins that are not empty, see GaussianCurve2dEstimator.
    ///
    /// @param config method of the estimation, initialised
    /// @param bIncludeOutOfBounds whether bins outside of the interval count
    /// @return the curve; its results tell a failure, such as fewer than three points
    /// @throws OVRIXMathException as processEstimation() does, and Estimation message 5 when that leaves its results
    ///         not initialised: for too few points for a robust method that must not give way to a plain one
    HistogramGaussianCurveFit fitGaussianCurve(const EstimationConfig& config, bool bIncludeOutOfBounds) const;

protected:
    BaseHistogram();

private:
    friend OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const BaseHistogram& histogram);
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::math::BaseHistogram";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items& items, Self& self);
    void copyMembers(const BaseHistogram& other);
    void cancelRead();

    const char* findInconsistency() const;
    bool hasLayout() const;
    void initBins(const eHistogramOutOfBoundsPolicy& policy);
    bool hasBins() const;
    void checkBins() const;
    unsigned long getTotal() const;

    ovReal64 _firstHistoValue;
    ovReal64 _lastHistoValue;
    ovReal64 _binWidth;
    ovUInt32 _nbClasses;
    ovUInt32 _lowerOutOfBoundsBinIdx;
    ovUInt32 _upperOutOfBoundsBinIdx;
    ovUInt32 _inBoundsBinOffset;
    UInt64Vector _histogramPopulation;
    mutable UInt64Vector _cumulatedHistogramPopulation;
};

/// Writes a table separated by semicolons: the header "ClassMin;ClassMax;Population;", then a line per class with its
/// bounds and its population. A bin before the classes comes first, as "LowerOutOfBoundsData" in place of both bounds,
/// one behind them comes last, as "UpperOutOfBoundsData", or as "OutOfBoundsData" if it serves both sides; the latter
/// also follows a single class under `eHOOBP_Nearest`, which is meant. Each line ends with a semicolon.
///
/// Without bins it writes the line "Histogram not initialized".
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const BaseHistogram& histogram);

extern template OVRIXMATH_EXPORT boost::shared_ptr<clustering::KernelKMeansClustering<clustering::LinearKernel>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32, const clustering::LinearKernel&, bool,
                                           const clustering::KernelKMeansClusteringConfig&) const;
extern template OVRIXMATH_EXPORT boost::shared_ptr<clustering::SpectralClustering<clustering::LinearKernel>>
BaseHistogram::applySpectralClustering(ovUInt32, const clustering::LinearKernel&, bool,
                                       const clustering::KernelKMeansClusteringConfig&) const;
extern template OVRIXMATH_EXPORT boost::shared_ptr<clustering::KernelKMeansClustering<clustering::PolynomialKernel>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32, const clustering::PolynomialKernel&, bool,
                                           const clustering::KernelKMeansClusteringConfig&) const;
extern template OVRIXMATH_EXPORT boost::shared_ptr<clustering::SpectralClustering<clustering::PolynomialKernel>>
BaseHistogram::applySpectralClustering(ovUInt32, const clustering::PolynomialKernel&, bool,
                                       const clustering::KernelKMeansClusteringConfig&) const;
extern template OVRIXMATH_EXPORT boost::shared_ptr<clustering::KernelKMeansClustering<clustering::RadialBasisKernel>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32, const clustering::RadialBasisKernel&, bool,
                                           const clustering::KernelKMeansClusteringConfig&) const;
extern template OVRIXMATH_EXPORT boost::shared_ptr<clustering::SpectralClustering<clustering::RadialBasisKernel>>
BaseHistogram::applySpectralClustering(ovUInt32, const clustering::RadialBasisKernel&, bool,
                                       const clustering::KernelKMeansClusteringConfig&) const;
extern template OVRIXMATH_EXPORT boost::shared_ptr<clustering::KernelKMeansClustering<clustering::SigmoidKernel>>
BaseHistogram::applyKernelKMeansClustering(ovUInt32, const clustering::SigmoidKernel&, bool,
                                           const clustering::KernelKMeansClusteringConfig&) const;
extern template OVRIXMATH_EXPORT boost::shared_ptr<clustering::SpectralClustering<clustering::SigmoidKernel>>
BaseHistogram::applySpectralClustering(ovUInt32, const clustering::SigmoidKernel&, bool,
                                       const clustering::KernelKMeansClusteringConfig&) const;

} // namespace math
} // namespace ovrix
