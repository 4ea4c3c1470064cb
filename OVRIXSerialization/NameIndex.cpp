#include <OVRIXSerialization/NameIndex.h>
#include <OVRIXUtil/ReserveOneMore.h>

namespace ovrix
{
namespace details
{

std::size_t NameIndex::add(std::string_view name)
{
    const std::size_t number = _entries.size();
    reserveOneMore(_entries);
    const std::string_view kept = _names.emplace_back(name);
    _numbers.emplace(kept, number);
    _entries.push_back({kept, 0});
    _entries[_last].successor = number;
    return _last = number;
}

std::size_t NameIndex::search(std::string_view name) const
{
    const auto found = _numbers.find(name);
    if (found == _numbers.end())
        return 0;
    _entries[_last].successor = found->second;
    return _last = found->second;
}

} // namespace details
} // namespace ovrix
