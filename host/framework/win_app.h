#pragma once

/// The framework's application object of a module. A module has one, as a global object.
class CWinApp
{
public:
    CWinApp() = default;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp() = default;

    /// Called when the module is loaded. False: the module cannot be used.
    virtual bool InitInstance() { return true; }
};
