#include "host/framework/wait_cursor.h"

#include "console_host/framework/work_note.h"

CWaitCursor::CWaitCursor()
{
    WorkNote::Instance().Begin();
}

CWaitCursor::~CWaitCursor()
{
    WorkNote::Instance().End();
}
