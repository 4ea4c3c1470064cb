#include <OVRIXUtil/LogMessageFormater.h>
#include <OVRIXUtil/OVRIXUtilFailure.h>

#include <locale>

namespace ovrix
{

namespace
{

/// A format that takes the same form under every global locale, and leaves unfed placeholders empty.
boost::format makeFormat(const std::string& text)
{
    boost::format format(text, std::locale::classic());
    format.exceptions(boost::io::all_error_bits ^ boost::io::too_few_args_bit);
    return format;
}

} // namespace

LogMessageFormater::LogMessageFormater(const LogMessageManager& manager) : _pManager(&manager), _format(makeFormat(""))
{
}

LogMessageFormater::LogMessageFormater(const LogMessageFormater& other) = default;

LogMessageFormater& LogMessageFormater::operator=(const LogMessageFormater& other) = default;

LogMessageFormater::~LogMessageFormater() = default;

LogMessageFormater& LogMessageFormater::setMsgId(const std::string& domainKey, int id)
{
    const std::string* const pText = _pManager->findMessage(domainKey, id);
    OVRIXUTIL_RAISE_UNLESS(pText != nullptr, eOVRIXUtilErrors, 0, domainKey, static_cast<long long>(id));
    _format = makeFormat(*pText);
    return *this;
}

template <class T>
LogMessageFormater& LogMessageFormater::operator%(const T& argument)
{
    OVRIXUTIL_RAISE_UNLESS(_format.remaining_args() > 0, eOVRIXUtilErrors, 1, string());
    _format % argument;
    return *this;
}

std::string LogMessageFormater::string() const
{
    // Of a copy: boost::format starts anew with the argument that follows on its str().
    return boost::format(_format).str();
}

template LogMessageFormater& LogMessageFormater::operator%(const unsigned long&);
template LogMessageFormater& LogMessageFormater::operator%(const unsigned int&);
template LogMessageFormater& LogMessageFormater::operator%(const double&);
template LogMessageFormater& LogMessageFormater::operator%(const long long&);
template LogMessageFormater& LogMessageFormater::operator%(const std::string&);
template LogMessageFormater& LogMessageFormater::operator%(const char* const&);

} // namespace ovrix
