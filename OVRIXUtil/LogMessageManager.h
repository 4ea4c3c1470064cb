#pragma once

#include <OVRIXUtil/Export.h>

#include <boost/noncopyable.hpp>

#include <map>
#include <string>
#include <string_view>
#include <typeinfo>
#include <utility>

namespace ovrix
{

/// A catalogue of message texts, each under the key of its domain and a number.
///
/// A domain is an enumeration; its key is the type-information name of that enumeration. Texts are added while
/// libraries are being loaded; afterwards a catalogue is only read, from any thread and without a lock.
class OVRIXUTIL_EXPORT LogMessageManager : private boost::noncopyable
{
public:
    /// The process-wide catalogue of that name, created by the first call for the name; safe on any thread. It lives
    /// until the process ends, also while static objects are being destroyed.
    static LogMessageManager& getInstance(const std::string& name);

    /// Stores a text; a text that stands under the same key and id is replaced.
    void addMessage(const std::string& domainKey, int id, const std::string& text);

    /// Stores a text under the key of the enumeration `D`.
    template <class D>
    void addMessage(const D& id, const std::string& text)
    {
        addMessage(std::string(typeid(D).name()), static_cast<int>(id), text);
    }

    /// The text under that key and id, or null when there is none.
    const std::string* findMessage(std::string_view domainKey, int id) const;

private:
    LogMessageManager() = default;

    /// By the key, then by the number; texts are found without a copy of the key.
    struct Less
    {
        using is_transparent = void;

        template <class Key, class OtherKey>
        bool operator()(const std::pair<Key, int>& first, const std::pair<OtherKey, int>& second) const
        {
            const int order = std::string_view(first.first).compare(second.first);
            return order < 0 || (order == 0 && first.second < second.second);
        }
    };

    std::map<std::pair<std::string, int>, std::string, Less> _messages;
};

} // namespace ovrix
