#pragma once

#include <OVRIXUtil/Export.h>
#include <OVRIXUtil/LogMessageManager.h>

#include <boost/format.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>

namespace ovrix
{

/// Formats a text of a message catalogue.
///
/// ```cpp
/// LogMessageFormater formater(getOVRIXMathLogMessageManager());
/// const std::string text = (formater[eEstimationMessage::domain(17)] % nbData % nbMinData).string();
/// ```
///
/// Placeholders follow boost::format, in the classic locale whatever the global one is. Those that are left unfed come
/// out empty. An unknown domain or id, or one argument too many, raises an OVRIXUtilException. A text is read for
/// placeholders when the first argument is fed, and one without any is given out as it stands.
class OVRIXUTIL_EXPORT LogMessageFormater
{
public:
    /// Binds the formatter to a catalogue, which must outlive it.
    explicit LogMessageFormater(const LogMessageManager& manager);

    LogMessageFormater(const LogMessageFormater& other);
    LogMessageFormater& operator=(const LogMessageFormater& other);
    ~LogMessageFormater();

    /// Selects a text of the catalogue.
    ///
    /// @param domainKey key of the domain, see LogMessageManager
    /// @param id number of the text within its domain
    /// @throws OVRIXUtilException when the catalogue has no such text
    LogMessageFormater& setMsgId(const std::string& domainKey, int id);

    /// Selects a text by a value of its domain's enumeration; as setMsgId().
    template <class D>
    LogMessageFormater& operator[](const D& id)
    {
        select(typeid(D).name(), static_cast<int>(id));
        return *this;
    }

    /// Feeds the next placeholder.
    ///
    /// @tparam T one of `unsigned long`, `unsigned int`, `double`, `long long`, `std::string`, `const char*`
    /// @throws OVRIXUtilException when all placeholders have been fed already
    template <class T>
    LogMessageFormater& operator%(const T& argument);

    /// The text as far as it has been fed; more can be fed afterwards.
    std::string string() const;

private:
    void select(std::string_view domainKey, int id);
    boost::format& getFormat();

    const LogMessageManager* _pManager;
    const std::string* _pText;            // of the catalogue
    std::optional<boost::format> _format; // of the text, once it has been read
};

extern template OVRIXUTIL_EXPORT LogMessageFormater& LogMessageFormater::operator%(const unsigned long&);
extern template OVRIXUTIL_EXPORT LogMessageFormater& LogMessageFormater::operator%(const unsigned int&);
extern template OVRIXUTIL_EXPORT LogMessageFormater& LogMessageFormater::operator%(const double&);
extern template OVRIXUTIL_EXPORT LogMessageFormater& LogMessageFormater::operator%(const long long&);
extern template OVRIXUTIL_EXPORT LogMessageFormater& LogMessageFormater::operator%(const std::string&);
extern template OVRIXUTIL_EXPORT LogMessageFormater& LogMessageFormater::operator%(const char* const&);

} // namespace ovrix
