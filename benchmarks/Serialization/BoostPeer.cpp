// Boost.Serialization: its binary and its XML archive.

#include "ArchiveComparison.h"

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>
#include <boost/make_shared.hpp>
#include <boost/serialization/base_object.hpp>
#include <boost/serialization/export.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/shared_ptr.hpp>
#include <boost/serialization/vector.hpp>

#include <algorithm>

namespace ovrix
{
namespace bench
{
namespace boost_peer
{

class Base
{
public:
    virtual ~Base() = default;

    template <class Archive>
    void serialize(Archive&, unsigned int)
    {
    }
};

/// A sample as a value.
class Value
{
public:
    Value() = default;

    explicit Value(const Sample& sample) : _sample(sample) {}

    bool operator==(const Value& other) const
    {
        return _sample == other._sample;
    }

    template <class Archive>
    void serialize(Archive& archive, unsigned int)
    {
        using boost::serialization::make_nvp;
        archive& make_nvp("_bInit", _sample.bInit);
        archive& make_nvp("_nbRuns", _sample.nbRuns);
        archive& make_nvp("_threshold", _sample.threshold);
        archive& make_nvp("_ratio", _sample.ratio);
    }

private:
    Sample _sample;
};

/// A sample behind a base.
class Object : public Base
{
public:
    Object() = default;

    explicit Object(const Sample& sample) : _value(sample) {}

    bool operator==(const Object& other) const
    {
        return _value == other._value;
    }

    template <class Archive>
    void serialize(Archive& archive, unsigned int)
    {
        archive& boost::serialization::make_nvp("base", boost::serialization::base_object<Base>(*this));
        archive& boost::serialization::make_nvp("value", _value);
    }

private:
    Value _value;
};

using Pointer = boost::shared_ptr<Base>;

bool areSame(double first, double second)
{
    return first == second;
}

bool areSame(const Value& first, const Value& second)
{
    return first == second;
}

bool areSame(const Pointer& pFirst, const Pointer& pSecond)
{
    return dynamic_cast<const Object&>(*pFirst) == dynamic_cast<const Object&>(*pSecond);
}

template <class T, class OArchive, class IArchive>
class Task : public ArchiveTask
{
public:
    explicit Task(std::vector<T> content) : _content(std::move(content)) {}

    void write(std::ostream& stream) override
    {
        OArchive archive(stream);
        archive << boost::serialization::make_nvp("value", _content);
    }

    void read(std::istream& stream) override
    {
        std::vector<T> restored;
        IArchive archive(stream);
        archive >> boost::serialization::make_nvp("value", restored);
        _restored.swap(restored);
    }

    bool isRestored() const override
    {
        return std::equal(_content.begin(), _content.end(), _restored.begin(), _restored.end(),
                          [](const T& first, const T& second) { return areSame(first, second); });
    }

private:
    std::vector<T> _content;
    std::vector<T> _restored;
};

template <class OArchive, class IArchive>
ArchiveTaskPtr makeVector(std::size_t count)
{
    return std::make_unique<Task<double, OArchive, IArchive>>(makeNumbers(count));
}

template <class OArchive, class IArchive>
ArchiveTaskPtr makeObjects(std::size_t count)
{
    const std::vector<Sample> samples = makeSamples(count);
    return std::make_unique<Task<Value, OArchive, IArchive>>(std::vector<Value>(samples.begin(), samples.end()));
}

template <class OArchive, class IArchive>
ArchiveTaskPtr makePointers(std::size_t count)
{
    std::vector<Pointer> pointers;
    for (const Sample& sample : makeSamples(count))
        pointers.push_back(boost::make_shared<Object>(sample));
    return std::make_unique<Task<Pointer, OArchive, IArchive>>(std::move(pointers));
}

ArchivePeer makePeer()
{
    using namespace boost::archive;
    ArchivePeer peer;
    peer.makeVector = makeVector<binary_oarchive, binary_iarchive>;
    peer.makeObjects = makeObjects<binary_oarchive, binary_iarchive>;
    peer.makePointers = makePointers<binary_oarchive, binary_iarchive>;
    peer.makeTextVector = makeVector<xml_oarchive, xml_iarchive>;
    peer.makeTextObjects = makeObjects<xml_oarchive, xml_iarchive>;
    return peer;
}

const bool g_bRegistered = registerArchiveComparison("boost", makePeer());

} // namespace boost_peer
} // namespace bench
} // namespace ovrix

BOOST_CLASS_EXPORT(ovrix::bench::boost_peer::Object)
