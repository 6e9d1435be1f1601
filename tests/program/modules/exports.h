#pragma once

// The exports of a module, each a text that names it.

#ifdef _WIN32
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED __attribute__((visibility("default")))
#endif

// Each module includes this once, and an inline function would not be exported.
// NOLINTBEGIN(misc-definitions-in-headers)
extern "C" {
EXPORTED const wchar_t* KelvoPlugInDeveloperOrganization()
{
    return L"organisation";
}
EXPORTED const wchar_t* KelvoPlugInDeveloperAddress()
{
    return L"street\r\ntown";
}
EXPORTED const wchar_t* KelvoPlugInDeveloperCountry()
{
    return L"country";
}
EXPORTED const wchar_t* KelvoPlugInDeveloperPhone()
{
    return L"telephone";
}
EXPORTED const wchar_t* KelvoPlugInDeveloperFax()
{
    return L"fax";
}
EXPORTED const wchar_t* KelvoPlugInDeveloperEmail()
{
    return L"e-mail";
}
EXPORTED const wchar_t* KelvoPlugInDeveloperWebsite()
{
    return L"web site";
}
EXPORTED const wchar_t* KelvoPlugInUpdateURL()
{
    return L"updates";
}
EXPORTED int KelvoPlugInSdkVersion()
{
    return 202001011;
}
EXPORTED int KelvoPlugInSdkServiceRelease()
{
    return 202001012;
}
}
// NOLINTEND(misc-definitions-in-headers)
