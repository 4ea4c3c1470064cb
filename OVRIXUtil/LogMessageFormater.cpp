#include <OVRIXUtil/LogMessageFormater.h>
#include <OVRIXUtil/OVRIXUtilFailure.h>

#include <ios>
#include <locale>
#include <ostream>
#include <type_traits>

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

/// Has the characters of texts converted once. libstdc++ remembers each when it is converted first, without a lock, and
/// texts are read on any thread.
bool convertCharacters()
{
    const auto& facet = std::use_facet<std::ctype<char>>(std::locale::classic());
    for (int code = 0; code < 256; ++code)
    {
        facet.narrow(static_cast<char>(code), '\0');
        facet.widen(static_cast<char>(code));
    }
    return true;
}

const bool g_bCharactersConverted = convertCharacters();

/// An argument on its way into the text. A stream keeps std::bad_alloc to itself unless told otherwise, and the text
/// would come out without the argument.
template <class T>
struct FedArgument
{
    const T& value;
};

template <class T>
std::ostream& operator<<(std::ostream& stream, const FedArgument<T>& argument)
{
    // A stream takes a null pointer for a failure; in a text it stands for nothing.
    if constexpr (std::is_pointer<T>::value)
        if (argument.value == nullptr)
            return stream;
    stream.exceptions(std::ios_base::badbit);
    return stream << argument.value;
}

/// What a formatter holds until a text is selected; never destroyed, as the catalogues.
const std::string& getEmptyText()
{
    static const auto& g_text = *new std::string;
    return g_text;
}

} // namespace

LogMessageFormater::LogMessageFormater(const LogMessageManager& manager) : _pManager(&manager), _pText(&getEmptyText())
{
}

LogMessageFormater::LogMessageFormater(const LogMessageFormater& other) = default;

LogMessageFormater& LogMessageFormater::operator=(const LogMessageFormater& other) = default;

LogMessageFormater::~LogMessageFormater() = default;

LogMessageFormater& LogMessageFormater::setMsgId(const std::string& domainKey, int id)
{
    select(domainKey, id);
    return *this;
}

template <class T>
LogMessageFormater& LogMessageFormater::operator%(const T& argument)
{
    boost::format& format = getFormat();
    OVRIXUTIL_RAISE_UNLESS(format.remaining_args() > 0, eOVRIXUtilErrors, 1, string());
    // To a copy: where memory runs out, boost::format keeps what it has made of the argument and starts with that.
    boost::format fed(format);
    fed % FedArgument<T>{argument};
    format.swap(fed);
    return *this;
}

std::string LogMessageFormater::string() const
{
    if (!_format && _pText->find('%') == std::string::npos)
        return *_pText;
    // Of a copy: boost::format starts anew with the argument that follows on its str().
    return (_format ? boost::format(*_format) : makeFormat(*_pText)).str();
}

void LogMessageFormater::select(std::string_view domainKey, int id)
{
    const std::string* const pText = _pManager->findMessage(domainKey, id);
    OVRIXUTIL_RAISE_UNLESS(pText != nullptr, eOVRIXUtilErrors, 0, std::string(domainKey), static_cast<long long>(id));
    _pText = pText;
    _format.reset();
}

boost::format& LogMessageFormater::getFormat()
{
    if (!_format)
        _format = makeFormat(*_pText);
    return *_format;
}

template LogMessageFormater& LogMessageFormater::operator%(const unsigned long&);
template LogMessageFormater& LogMessageFormater::operator%(const unsigned int&);
template LogMessageFormater& LogMessageFormater::operator%(const double&);
template LogMessageFormater& LogMessageFormater::operator%(const long long&);
template LogMessageFormater& LogMessageFormater::operator%(const std::string&);
template LogMessageFormater& LogMessageFormater::operator%(const char* const&);

} // namespace ovrix
