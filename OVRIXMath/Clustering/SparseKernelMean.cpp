#include <OVRIXMath/Clustering/RowSums.h>
#include <OVRIXMath/Clustering/SparseKernelMean.h>

#include <algorithm>
#include <cmath>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

namespace
{

/// `product = A x` for a symmetric A, whose columns are its rows.
void multiply(const GrowableMatrix& A, const std::vector<double>& x, std::vector<double>& product)
{
    product.assign(A.size(), 0.0);
    addRows<Product>(product.data(), A.size(), x.data(), A.size(), EquidistantRows{A.row(0), A.stride()});
}

/// `row[c] = a[c] * factor / divisor + row[c]`
struct AddScaledQuotients
{
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(double* row, std::size_t size, const double* a, double factor,
                                                  double divisor)
    {
        using Reals = typename math::details::Pack<Lanes>::Reals;
        std::size_t c = 0;
        for (; c + Lanes <= size; c += Lanes)
        {
            Reals element;
            Reals coefficient;
            math::details::loadPack(element, row + c);
            math::details::loadPack(coefficient, a + c);
            element = coefficient * factor / divisor + element;
            math::details::storePack(row + c, element);
        }
        for (; c < size; ++c)
            row[c] = a[c] * factor / divisor + row[c];
    }
};

/// `product[r] += (column[r] - pivotRow[r] * pivot) * factor`
struct AddColumnWithoutPivot
{
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(double* product, std::size_t size, const double* column,
                                                  const double* pivotRow, double pivot, double factor)
    {
        using Reals = typename math::details::Pack<Lanes>::Reals;
        std::size_t r = 0;
        for (; r + Lanes <= size; r += Lanes)
        {
            Reals sum;
            Reals element;
            Reals pivotElement;
            math::details::loadPack(sum, product + r);
            math::details::loadPack(element, column + r);
            math::details::loadPack(pivotElement, pivotRow + r);
            sum += (element - pivotElement * pivot) * factor;
            math::details::storePack(product + r, sum);
        }
        for (; r < size; ++r)
            product[r] += (column[r] - pivotRow[r] * pivot) * factor;
    }
};

/// Moves the elements behind place p one place to the front.
void erasePlace(double* elements, std::size_t size, std::size_t p)
{
    std::copy(elements + p + 1, elements + size, elements + p);
}

} // namespace

void SparseKernelMean::clear()
{
    _weights.clear();
    _nbSamples = 0;
    _clusterTerm = 0.0;
    _bClusterTermUpToDate = true;
    _K.setSize(0);
    _Kinv.setSize(0);
    _minStrength = 0.0;
    _minStrengthIdx = 0;
}

double* SparseKernelMean::prepareKernelValues()
{
    _k.resize(_weights.size());
    return _k.data();
}

SparseKernelMean::Projection SparseKernelMean::projectSample(double selfValue)
{
    Projection sample{selfValue, selfValue, false};
    if (_weights.empty())
    {
        // A sample without a direction in feature space does not count.
        sample.bJoins = std::fabs(selfValue) > NumericLimits<double>::s_eps;
    }
    else
    {
        sample.delta = project(selfValue);
        sample.bJoins = sample.delta > std::max(_accuracyThreshold, _minStrength);
    }
    if (sample.bJoins)
        reserve(_weights.size() == _maxDictionarySize ? _weights.size() : _weights.size() + 1);
    return sample;
}

/// Takes the memory of all that grows with the dictionary.
void SparseKernelMean::reserve(std::size_t size)
{
    _K.reserve(size);
    _Kinv.reserve(size);
    for (std::vector<double>* pVector : {&_weights, &_pivotRow, &_scaledPivotRow, &_product})
        pVector->reserve(_K.stride());
}

SparseKernelMean::Addition SparseKernelMean::addSample(const Projection& sample)
{
    Addition addition;
    addition.bJoined = sample.bJoins;
    if (_weights.empty())
    {
        if (sample.bJoins)
            start(sample.selfValue);
        return addition;
    }

    ++_nbSamples;
    const double sampleShare = 1.0 / static_cast<double>(_nbSamples);
    const double formerShare = 1.0 - sampleShare;
    _bClusterTermUpToDate = false;
    if (!sample.bJoins)
    {
        for (std::size_t i = 0; i < _weights.size(); ++i)
            _weights[i] = formerShare * _weights[i] + sampleShare * _a[i];
        return addition;
    }

    double delta = sample.delta;
    if (_weights.size() == _maxDictionarySize)
    {
        if (_minStrength == 0.0)
            updateMinStrength();
        addition.removed = _minStrengthIdx;
        removeMember(addition.removed);
        delta = project(sample.selfValue);
    }
    for (double& weight : _weights)
        weight *= formerShare;
    _weights.push_back(sampleShare);
    appendMember(sample.selfValue, delta);
    if (addition.removed != Addition::g_none)
        updateMinStrength();
    return addition;
}

/// Makes the first sample that counts the only member.
void SparseKernelMean::start(double selfValue)
{
    _nbSamples = 1;
    _weights.push_back(1.0);
    _K.setSize(1);
    _Kinv.setSize(1);
    *_K.row(0) = selfValue;
    *_Kinv.row(0) = 1.0 / selfValue;
    _minStrength = 0.0;
    _minStrengthIdx = 0;
    _bClusterTermUpToDate = false;
}

/// Projects the present sample on the members: its coefficients, and the squared length of what is left of it.
double SparseKernelMean::project(double selfValue)
{
    multiply(_Kinv, _k, _a);
    return selfValue - sumTerms<Product>(_k.data(), _a.data(), _k.size());
}

/// Copies row p of the inverse, which is its column p as well, and scales it by the inverse of its element on the
/// diagonal: what removing member p takes.
void SparseKernelMean::prepareRemoval(std::size_t p)
{
    const std::size_t size = _Kinv.size();
    _pivotRow.assign(_Kinv.row(p), _Kinv.row(p) + size);
    _scaledPivotRow.resize(size);
    const double f = 1.0 / _pivotRow[p];
    for (std::size_t r = 0; r < size; ++r)
        _scaledPivotRow[r] = f * _pivotRow[r];
}

/// Takes member p out of the inverse, the weights, the kernel matrix and the present kernel values.
void SparseKernelMean::removeMember(std::size_t p)
{
    const std::size_t m = _weights.size() - 1;
    const auto formerPlace = [p](std::size_t r) { return r < p ? r : r + 1; };

    // The lower triangle takes the values of the upper one, in which the row's element is the scaled one.
    prepareRemoval(p);
    for (std::size_t r = 0; r < m; ++r)
    {
        const std::size_t R = formerPlace(r);
        const double* const source = _Kinv.row(R);
        double* const target = _Kinv.row(r);
        for (std::size_t c = 0; c < m; ++c)
        {
            const std::size_t C = formerPlace(c);
            target[c] = source[C] - (c < r ? _pivotRow[R] * _scaledPivotRow[C] : _pivotRow[C] * _scaledPivotRow[R]);
        }
    }
    _Kinv.setSize(m);

    // The weights are expressed on the members that are left.
    multiply(_K, _weights, _product);
    erasePlace(_product.data(), m + 1, p);
    multiply(_Kinv, _product, _weights);

    for (std::size_t r = 0; r < m; ++r)
    {
        if (r >= p)
            std::copy_n(_K.row(r + 1), m + 1, _K.row(r));
        erasePlace(_K.row(r), m + 1, p);
    }
    _K.setSize(m);
    erasePlace(_k.data(), m + 1, p);
    _k.resize(m);
}

/// Grows both matrices by the present sample.
void SparseKernelMean::appendMember(double selfValue, double delta)
{
    const std::size_t m = _k.size();
    _K.setSize(m + 1);
    _Kinv.setSize(m + 1);
    const double* const a = _a.data();
    for (std::size_t r = 0; r < m; ++r)
    {
        double* const row = _Kinv.row(r);
        math::details::runKernel<AddScaledQuotients>(row, m, a, a[r], delta);
        row[m] = -a[r] / delta;
        _Kinv.row(m)[r] = row[m];
        _K.row(r)[m] = _k[r];
    }
    _Kinv.row(m)[m] = 1.0 / delta;
    std::copy(_k.begin(), _k.end(), _K.row(m));
    _K.row(m)[m] = selfValue;
}

void SparseKernelMean::updateMinStrength()
{
    double minStrength = NumericLimits<double>::s_max;
    std::size_t minStrengthIdx = _minStrengthIdx;
    for (std::size_t p = 0; p < _weights.size(); ++p)
    {
        const double strength = computeStrength(p);
        if (minStrength > strength)
        {
            minStrength = strength;
            minStrengthIdx = p;
        }
    }
    _minStrength = minStrength;
    _minStrengthIdx = minStrengthIdx;
}

/// The squared length that is left of member p after its projection on the others.
///
/// Multiplies the row of kernel values by the inverse without p, whose elements are formed as in removeMember() and
/// never stored. Place p itself is computed like the others and not used.
double SparseKernelMean::computeStrength(std::size_t p)
{
    prepareRemoval(p);
    const std::size_t size = _weights.size();
    const double* const kernelValues = _K.row(p);
    const double* const pivotRow = _pivotRow.data();
    const double* const scaledPivotRow = _scaledPivotRow.data();
    _product.assign(size, 0.0);
    double* const product = _product.data();
    for (std::size_t c = 0; c < size; ++c)
    {
        if (c == p)
            continue;
        const double* const column = _Kinv.row(c);
        const double factor = kernelValues[c];
        const double pivot = pivotRow[c];
        const double scaledPivot = scaledPivotRow[c];
        math::details::runKernel<AddColumnWithoutPivot>(product, c, column, scaledPivotRow, pivot, factor);
        math::details::runKernel<AddColumnWithoutPivot>(product + c, size - c, column + c, pivotRow + c, scaledPivot,
                                                        factor);
    }
    double projected = 0.0;
    for (std::size_t r = 0; r < size; ++r)
    {
        if (r != p)
            projected += kernelValues[r] * product[r];
    }
    return kernelValues[p] - projected;
}

double SparseKernelMean::getClusterTerm() const
{
    if (_bClusterTermUpToDate)
        return _clusterTerm;
    const std::size_t size = _weights.size();
    double term = 0.0;
    for (std::size_t i = 0; i < size; ++i)
    {
        const double* const row = _K.row(i);
        const double weight = _weights[i];
        const double doubled = 2.0 * weight;
        term += weight * weight * row[i];
        for (std::size_t j = i + 1; j < size; ++j)
            term += _weights[j] * doubled * row[j];
    }
    _clusterTerm = term;
    _bClusterTermUpToDate = true;
    return term;
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
