#pragma once

/// Shows the wait cursor from its making to its end. May be nested: the cursor goes with the last.
class CWaitCursor
{
public:
    CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    ~CWaitCursor();
};
