// cereal: its binary archive.

#include "ArchiveComparison.h"

#include <algorithm>
#include <cereal/archives/binary.hpp>
#include <cereal/types/base_class.hpp>
#include <cereal/types/memory.hpp>
#include <cereal/types/polymorphic.hpp>
#include <cereal/types/vector.hpp>

namespace ovrix
{
namespace bench
{
namespace cereal_peer
{

class Base
{
public:
    virtual ~Base() = default;

    template <class Archive>
    void serialize(Archive&)
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
    void serialize(Archive& archive)
    {
        archive(_sample.bInit, _sample.nbRuns, _sample.threshold, _sample.ratio);
    }

protected:
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
    void serialize(Archive& archive)
    {
        archive(cereal::base_class<Base>(this), _value);
    }

private:
    Value _value;
};

using Pointer = std::shared_ptr<Base>;

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

template <class T>
class Task : public ArchiveTask
{
public:
    explicit Task(std::vector<T> content) : _content(std::move(content)) {}

    void write(std::ostream& stream) override
    {
        cereal::BinaryOutputArchive archive(stream);
        archive(_content);
    }

    void read(std::istream& stream) override
    {
        std::vector<T> restored;
        cereal::BinaryInputArchive archive(stream);
        archive(restored);
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

ArchiveTaskPtr makeVector(std::size_t count)
{
    return std::make_unique<Task<double>>(makeNumbers(count));
}

ArchiveTaskPtr makeObjects(std::size_t count)
{
    const std::vector<Sample> samples = makeSamples(count);
    return std::make_unique<Task<Value>>(std::vector<Value>(samples.begin(), samples.end()));
}

ArchiveTaskPtr makePointers(std::size_t count)
{
    std::vector<Pointer> pointers;
    for (const Sample& sample : makeSamples(count))
        pointers.push_back(std::make_shared<Object>(sample));
    return std::make_unique<Task<Pointer>>(std::move(pointers));
}

ArchivePeer makePeer()
{
    ArchivePeer peer;
    peer.makeVector = makeVector;
    peer.makeObjects = makeObjects;
    peer.makePointers = makePointers;
    return peer;
}

const bool g_bRegistered = registerArchiveComparison("cereal", makePeer());

} // namespace cereal_peer
} // namespace bench
} // namespace ovrix

CEREAL_REGISTER_TYPE(ovrix::bench::cereal_peer::Object)
