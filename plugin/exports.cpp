#include "plugin/developer_information.h"

// What the host looks up in the module by its plain name.

#ifdef _WIN32
#define IMPORTOBJ_EXPORT extern "C" __declspec(dllexport)
#else
#define IMPORTOBJ_EXPORT extern "C" __attribute__((visibility("default")))
#endif

IMPORTOBJ_EXPORT const wchar_t* KelvoPlugInDeveloperOrganization()
{
    return DeveloperInformation::Organization;
}

IMPORTOBJ_EXPORT const wchar_t* KelvoPlugInDeveloperAddress()
{
    return DeveloperInformation::Address;
}

IMPORTOBJ_EXPORT const wchar_t* KelvoPlugInDeveloperCountry()
{
    return DeveloperInformation::Country;
}

IMPORTOBJ_EXPORT const wchar_t* KelvoPlugInDeveloperPhone()
{
    return DeveloperInformation::Phone;
}

IMPORTOBJ_EXPORT const wchar_t* KelvoPlugInDeveloperFax()
{
    return DeveloperInformation::Fax;
}

IMPORTOBJ_EXPORT const wchar_t* KelvoPlugInDeveloperEmail()
{
    return DeveloperInformation::Email;
}

IMPORTOBJ_EXPORT const wchar_t* KelvoPlugInDeveloperWebsite()
{
    return DeveloperInformation::Website;
}

IMPORTOBJ_EXPORT int KelvoPlugInSdkVersion()
{
    return DeveloperInformation::SdkVersion;
}

IMPORTOBJ_EXPORT int KelvoPlugInSdkServiceRelease()
{
    return DeveloperInformation::SdkServiceRelease;
}

IMPORTOBJ_EXPORT const wchar_t* KelvoPlugInUpdateURL()
{
    return DeveloperInformation::UpdateUrl;
}
