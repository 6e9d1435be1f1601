#include "console_host/framework/work_note.h"

#include "console_host/runtime/terminal.h"

#include "host/framework/wait_cursor.h"

#include <chrono>
#include <cstdio>
#include <exception>

WorkNote& WorkNote::Instance()
{
    static WorkNote note;
    return note;
}

WorkNote::~WorkNote()
{
    while (End()) {
    }
}

void WorkNote::Begin()
{
    if (++m_depth > 1 || !IsTerminal(stderr))
        return;
    m_ending = false;
    try {
        m_thread = std::thread([this] { Run(); });
    } catch (const std::exception&) {
        // Without a thread there is no note, and the work goes on.
        return;
    }
}

bool WorkNote::End()
{
    if (m_depth == 0)
        return false;
    if (--m_depth > 0 || !m_thread.joinable())
        return true;
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_wake.notify_one();
    m_thread.join();
    return true;
}

void WorkNote::Hide()
{
    if (!m_thread.joinable())
        return;
    const std::lock_guard lock(m_mutex);
    Erase();
}

void WorkNote::Run()
{
    constexpr std::chrono::seconds Patience(1);
    std::unique_lock lock(m_mutex);
    while (!m_wake.wait_for(lock, Patience, [this] { return m_ending; })) {
        if (m_shown)
            continue;
        std::fputs("working ...", stderr);
        std::fflush(stderr);
        m_shown = true;
    }
    Erase();
}

void WorkNote::Erase()
{
    if (!m_shown)
        return;
    std::fputs("\r           \r", stderr);
    std::fflush(stderr);
    m_shown = false;
}

CWaitCursor::CWaitCursor()
{
    WorkNote::Instance().Begin();
}

CWaitCursor::~CWaitCursor()
{
    WorkNote::Instance().End();
}
