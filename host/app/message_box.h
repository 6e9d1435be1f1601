#pragma once

/// Kinds of message box.
enum MessageBoxFlags : unsigned int
{
    MessageBoxOk = 0x00,         ///< an OK button only
    MessageBoxExclamation = 0x30 ///< an OK button only, and the exclamation icon
};

/// Shows a message box, over a dialog that is open, waits until the user closes it and returns the
/// button that closed it: 1 for OK. A host without windows shows the texts in its own way and
/// returns 1 at once. Both texts are only read during the call. User-interface thread only. Throws
/// std::bad_alloc when out of memory.
int KelvoMessageBox(const wchar_t* text, const wchar_t* caption, unsigned int flags);
