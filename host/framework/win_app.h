#pragma once

/// The framework's application object of a module. A module has one, as a global object, which it
/// owns: the constructor tells the host of it, the destructor withdraws it; neither throws.
class CWinApp
{
public:
    CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp();

    /// Called once, on the user-interface thread, after the module was loaded and before the
    /// plug-in's load hook. Returns false when the module cannot be used; the host then unloads it.
    virtual bool InitInstance();
};
