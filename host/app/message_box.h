#pragma once

/// Kinds of message box.
enum MessageBoxFlags : unsigned int
{
    MessageBoxOk = 0x00,         ///< an OK button only
    MessageBoxExclamation = 0x30 ///< an OK button only, and the exclamation icon
};

/// Shows a message box and waits until the user closes it. Both texts are only read during the
/// call. Gives the button that closed it: 1 for OK.
int KelvoMessageBox(const wchar_t* text, const wchar_t* caption, unsigned int flags);
