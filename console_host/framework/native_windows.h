#pragma once

#include <string_view>

/// Windows of the host's own, each shown until the user closes it.

/// Whether a window can be shown at all: false off Windows without a display.
bool CanShowWindows();

/// A message with an OK button. `flags` are those of KelvoMessageBox.
void ShowMessageWindow(std::wstring_view text, std::wstring_view caption, unsigned int flags);

/// A longer text that can be scrolled.
void ShowTextWindow(std::wstring_view text, std::wstring_view caption);

/// What the host knows of the dialogs of its run.
struct DialogState
{
    int open = 0;     ///< dialogs on the screen now
    int shown = 0;    ///< dialogs shown so far
    int notShown = 0; ///< dialogs that could not be shown
};

/// The one record of this process.
DialogState& Dialogs();
