#pragma once

/// What the host knows of the dialogs of its run.
struct DialogState
{
    int open = 0;     ///< dialogs on the screen now
    int shown = 0;    ///< dialogs shown so far
    int notShown = 0; ///< dialogs that could not be shown
};

/// The one record of this process.
DialogState& Dialogs();
