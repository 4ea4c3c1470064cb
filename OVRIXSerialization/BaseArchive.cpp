#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

namespace ovrix
{

BaseArchive::BaseArchive(bool bText) : _bText(bText) {}

BaseArchive::~BaseArchive() = default;

bool BaseArchive::isText() const
{
    return _bText;
}

bool BaseArchive::isClassVersionRegistred(const std::string& className) const
{
    return _classVersions.count(className) != 0;
}

void BaseArchive::registerClassVersion(const std::string& className, ovUInt32 version)
{
    _classVersions[className] = version;
}

ovUInt32 BaseArchive::getRegisterClassVersion(const std::string& className) const
{
    const auto found = _classVersions.find(className);
    OVRIXSERIALIZATION_RAISE_UNLESS(found != _classVersions.end(), 17, className);
    return found->second;
}

} // namespace ovrix
