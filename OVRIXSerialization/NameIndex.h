#pragma once

#include <OVRIXSerialization/ArchiveName.h>
#include <OVRIXSerialization/Export.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ovrix
{
namespace details
{

/// Numbers names from 1 on, in the order in which they are added.
///
/// Archives repeat names in the same order from object to object. So each name remembers which one was looked for
/// behind it the last time, and that one is tried before the table is asked.
class OVRIXSERIALIZATION_EXPORT NameIndex
{
public:
    /// Number of a name, or 0 when it is not among those that were added.
    std::size_t find(std::string_view name) const
    {
        const std::size_t guess = _entries[_last].successor;
        if (guess != 0 && areSameNames(_entries[guess].name, name))
            return _last = guess;
        return search(name);
    }

    /// Adds a name that is not among them. Where memory is short it throws, and the name is not among them.
    ///
    /// @return its number
    std::size_t add(std::string_view name);

    /// The name of a number; stays where it is as long as the index.
    std::string_view getName(std::size_t number) const
    {
        return _entries[number].name;
    }

private:
    struct Entry
    {
        std::string_view name;
        std::size_t successor;
    };

    /// Of a type of its own: the standard library takes its own hash of strings for a slow one, and looks through small
    /// tables name by name.
    struct Hash
    {
        std::size_t operator()(std::string_view name) const
        {
            return std::hash<std::string_view>()(name);
        }
    };

    std::size_t search(std::string_view name) const;

    std::deque<std::string> _names;
    std::unordered_map<std::string_view, std::size_t, Hash> _numbers;
    mutable std::vector<Entry> _entries{{std::string_view(), 0}}; // that of no name comes first
    mutable std::size_t _last = 0;
};

} // namespace details
} // namespace ovrix
