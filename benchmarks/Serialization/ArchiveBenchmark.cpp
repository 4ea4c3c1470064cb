// Archives of one large vector and of many small objects, written to and read from memory and files, beside other
// libraries and beside the plain bytes. Memory is a stream that has its size already; files lie in the folder for
// temporary files. All libraries read into new memory each time.

#include "ArchiveComparison.h"

#include <OVRIXMath/LinearAlgebra/LinearAlgebraSerializationOperators.h>
#include <OVRIXSerialization/BinaryIArchive.h>
#include <OVRIXSerialization/BinaryOArchive.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXSerialization/SerializableObject.h>
#include <OVRIXSerialization/TextIArchive.h>
#include <OVRIXSerialization/TextOArchive.h>

#include <benchmark/benchmark.h>
#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <random>
#include <sstream>
#include <support/Comparison.h>

namespace ovrix
{
namespace bench
{

namespace
{

constexpr std::size_t g_nbNumbers = 10000000;
constexpr std::size_t g_nbObjects = 100000;
constexpr std::size_t g_nbTextNumbers = 100000;
constexpr std::size_t g_nbTextObjects = 20000;

/// An abstract base, as polymorphic objects have it.
class SampleBase : public CopiedClass<SampleBase, BaseSerializationObject>
{
private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::bench::SampleBase";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items&, Self&)
    {
    }

    void copyMembers(const SampleBase&) {}
};

/// A sample as this library's users have it.
class SampleObject : public CopyableObject<SampleObject, SampleBase>
{
public:
    SampleObject() = default;

    explicit SampleObject(const Sample& sample) : _sample(sample) {}

    bool operator==(const SampleObject& other) const
    {
        return _sample == other._sample;
    }

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::bench::SampleObject";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_bInit", self._sample.bInit);
        items("_nbRuns", self._sample.nbRuns);
        items("_threshold", self._sample.threshold);
        items("_ratio", self._sample.ratio);
    }

    void copyMembers(const SampleObject& other)
    {
        _sample = other._sample;
    }

    Sample _sample;
};

const DynamicRegistrator<SampleObject> g_classRegistrator;

struct VectorContent
{
    using Type = math::Vector;

    static Type make(std::size_t count)
    {
        const std::vector<double> numbers = makeNumbers(count);
        Type vector(count);
        std::copy(numbers.begin(), numbers.end(), vector.begin());
        return vector;
    }

    static bool areSame(const Type& first, const Type& second)
    {
        return first.size() == second.size() && std::equal(first.begin(), first.end(), second.begin());
    }
};

struct ObjectsContent
{
    using Type = std::vector<SampleObject>;

    static Type make(std::size_t count)
    {
        const std::vector<Sample> samples = makeSamples(count);
        return Type(samples.begin(), samples.end());
    }

    static bool areSame(const Type& first, const Type& second)
    {
        return first == second;
    }
};

struct PointersContent
{
    using Type = std::vector<boost::shared_ptr<SampleBase>>;

    static Type make(std::size_t count)
    {
        Type pointers;
        for (const Sample& sample : makeSamples(count))
            pointers.push_back(boost::make_shared<SampleObject>(sample));
        return pointers;
    }

    static bool areSame(const Type& first, const Type& second)
    {
        const auto areEqual = [](const auto& pFirst, const auto& pSecond)
        { return dynamic_cast<const SampleObject&>(*pFirst) == dynamic_cast<const SampleObject&>(*pSecond); };
        return first.size() == second.size() && std::equal(first.begin(), first.end(), second.begin(), areEqual);
    }
};

/// A content in an archive of this library.
template <class Content, class OArchive, class IArchive>
class OvrixTask : public ArchiveTask
{
public:
    explicit OvrixTask(std::size_t count) : _content(Content::make(count)) {}

    void write(std::ostream& stream) override
    {
        OArchive archive(stream);
        archive << makeOItem("value", _content);
        archive.close();
    }

    void read(std::istream& stream) override
    {
        IArchive archive(stream);
        archive >> makeIItem("value", _restored);
    }

    bool isRestored() const override
    {
        return Content::areSame(_restored, _content);
    }

private:
    typename Content::Type _content;
    typename Content::Type _restored;
};

template <class Content>
using BinaryTask = OvrixTask<Content, BinaryOArchive, BinaryIArchive>;
template <class Content>
using TextTask = OvrixTask<Content, TextOArchive, TextIArchive>;

/// A stream in memory that keeps its memory.
class MemoryStream
{
public:
    explicit MemoryStream(ArchiveTask& task) : _task(task)
    {
        _task.write(_stream);
        _size = static_cast<std::size_t>(_stream.tellp());
        read();
    }

    void write()
    {
        _stream.seekp(0);
        _task.write(_stream);
    }

    void read()
    {
        _stream.clear();
        _stream.seekg(0);
        _task.read(_stream);
    }

    std::size_t getSize() const
    {
        return _size;
    }

private:
    ArchiveTask& _task;
    std::stringstream _stream;
    std::size_t _size = 0;
};

/// A file that is there as long as the object.
class TemporaryFile
{
public:
    explicit TemporaryFile(ArchiveTask& task) : _task(task), _path(findPath())
    {
        write();
        read();
    }

    ~TemporaryFile()
    {
        boost::system::error_code ignored;
        boost::filesystem::remove(_path, ignored);
    }

    void write()
    {
        _task.writeFile(_path);
    }

    void read()
    {
        _task.readFile(_path);
    }

    std::size_t getSize() const
    {
        return boost::filesystem::file_size(_path);
    }

private:
    static std::string findPath()
    {
        namespace fs = boost::filesystem;
        return (fs::temp_directory_path() / fs::unique_path("ovrix_bench_%%%%%%%%")).string();
    }

    ArchiveTask& _task;
    std::string _path;
};

using Factories = std::pair<ArchiveTaskFactory, ArchiveTaskFactory>;

/// Times writing or reading beside the peer; counts the bytes of both archives.
template <class Place>
void compareIn(benchmark::State& state, const Factories& factories, std::size_t count, void (Place::*run)())
{
    const ArchiveTaskPtr pTask = factories.first(count);
    const ArchiveTaskPtr pPeer = factories.second(count);
    Place place(*pTask);
    Place peerPlace(*pPeer);
    if (!pTask->isRestored() || !pPeer->isRestored())
        return state.SkipWithError("what was read is not what was written");
    compareWithPeer(
        state, [&] { (place.*run)(); }, [&] { (peerPlace.*run)(); });
    state.counters["bytes"] = static_cast<double>(place.getSize());
    state.counters["peerBytes"] = static_cast<double>(peerPlace.getSize());
}

template <class Place>
void registerRow(const std::string& name, const Factories& factories, std::size_t count, void (Place::*run)())
{
    benchmark::RegisterBenchmark(name.c_str(), [factories, count, run](benchmark::State& state)
                                 { compareIn<Place>(state, factories, count, run); })
        ->Iterations(15)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void registerRows(const std::string& name, ArchiveTaskFactory makeTask, ArchiveTaskFactory makePeer, std::size_t count)
{
    if (!makePeer)
        return;
    const Factories factories(makeTask, makePeer);
    registerRow(name + "/memory/write", factories, count, &MemoryStream::write);
    registerRow(name + "/memory/read", factories, count, &MemoryStream::read);
    registerRow(name + "/file/write", factories, count, &TemporaryFile::write);
    registerRow(name + "/file/read", factories, count, &TemporaryFile::read);
}

} // namespace

std::vector<Sample> makeSamples(std::size_t count)
{
    std::vector<Sample> samples(count);
    unsigned int i = 0;
    for (Sample& sample : samples)
    {
        sample.bInit = i % 3 == 0;
        sample.nbRuns = 17 * i;
        sample.threshold = 0.1 * i;
        sample.ratio = 1.0 / (1.0 + i);
        ++i;
    }
    return samples;
}

std::vector<double> makeNumbers(std::size_t count)
{
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    std::vector<double> numbers(count);
    for (double& number : numbers)
        number = unit(generator);
    return numbers;
}

bool registerArchiveComparison(const char* peerName, const ArchivePeer& peer)
{
    const std::string suffix = std::string("/") + peerName;
    registerRows("vector" + suffix, makeArchiveTask<BinaryTask<VectorContent>>, peer.makeVector, g_nbNumbers);
    registerRows("objects" + suffix, makeArchiveTask<BinaryTask<ObjectsContent>>, peer.makeObjects, g_nbObjects);
    registerRows("pointers" + suffix, makeArchiveTask<BinaryTask<PointersContent>>, peer.makePointers, g_nbObjects);
    registerRows("text/vector" + suffix, makeArchiveTask<TextTask<VectorContent>>, peer.makeTextVector,
                 g_nbTextNumbers);
    registerRows("text/objects" + suffix, makeArchiveTask<TextTask<ObjectsContent>>, peer.makeTextObjects,
                 g_nbTextObjects);
    return true;
}

} // namespace bench
} // namespace ovrix
