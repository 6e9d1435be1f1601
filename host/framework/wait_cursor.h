#pragma once

/// Shows the wait cursor, or whatever else tells the user that work is going on, for its lifetime.
/// May be nested: the cursor disappears with the last. User-interface thread only; nothing here
/// fails.
class CWaitCursor
{
public:
    CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    ~CWaitCursor();
};
