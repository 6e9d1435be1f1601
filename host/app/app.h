#pragma once

class CKelvoProfileContext;
class CWnd;

/// The host application, for what a plug-in asks of it. There is one; it exists before the first
/// module is loaded and outlives every module. All operations are for the user-interface thread.
class CKelvoApp
{
public:
    CKelvoApp() = default;
    CKelvoApp(const CKelvoApp&) = delete;
    CKelvoApp& operator=(const CKelvoApp&) = delete;
    virtual ~CKelvoApp() = default;

    /// Prints on the host's command line, in the form of the product's wide printf on every
    /// platform: "%s" takes a wide string, "%S" an 8-bit string (UTF-8). The format and the
    /// arguments are only read during the call. Only numbers, characters and strings can be
    /// printed: from any other placeholder on ("%p", "%n"), the format is printed as it is. The
    /// text is printed as it is, so a line needs its
    /// "\n". Throws std::bad_alloc when out of memory; text that the host cannot show is lost.
    virtual void Print(const wchar_t* format, ...) = 0;

    /// Returns the host's settings store, which the host owns and which lives as long as it. The
    /// host has it ready before it calls a plug-in's load hook and keeps it until the unload hook
    /// has returned.
    virtual CKelvoProfileContext& ProfileContext() = 0;

    /// Returns the host's main window, or null when it has none. The host owns it; it is valid
    /// until the calling operation of the plug-in returns.
    virtual CWnd* MainWnd() = 0;

    /// Shows a help topic of the calling plug-in, also while one of its dialogs is open. Returns
    /// false when the topic cannot be shown; the host has then said so itself.
    virtual bool DoHelp(int topicId) = 0;
};

/// Returns the one host application.
CKelvoApp& KelvoApp();
