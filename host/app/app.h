#pragma once

class CKelvoProfileContext;
class CWnd;

/// The host application, for what a plug-in asks of it. There is one; it outlives every plug-in.
class CKelvoApp
{
public:
    CKelvoApp() = default;
    CKelvoApp(const CKelvoApp&) = delete;
    CKelvoApp& operator=(const CKelvoApp&) = delete;
    virtual ~CKelvoApp() = default;

    /// Prints on the host's command line, in the form of the product's wide printf on every
    /// platform: "%s" takes a wide string, "%S" an 8-bit string (UTF-8). The format is only read
    /// during the call. The text is printed as it is, so a line needs its "\n".
    virtual void Print(const wchar_t* format, ...) = 0;

    /// The host's settings store.
    virtual CKelvoProfileContext& ProfileContext() = 0;

    /// The host's main window, or null when it has none.
    virtual CWnd* MainWnd() = 0;

    /// Shows a help topic. False when it cannot be shown.
    virtual bool DoHelp(int topicId) = 0;
};

/// The one host application.
CKelvoApp& KelvoApp();
