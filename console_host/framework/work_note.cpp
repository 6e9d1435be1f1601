#include "console_host/framework/work_note.h"

#include "console_host/runtime/bytes_read.h"
#include "console_host/runtime/terminal.h"

#include "host/framework/wait_cursor.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>
#include <new>
#include <string_view>
#include <utility>

namespace {

/// The terminal shows "^C" after the note where the user types it.
constexpr int KeysShown = 2;

/// How many columns of the terminal the note takes at most, in a form that a signal handler may
/// use.
std::atomic<int>& ColumnsShown() noexcept
{
    static constinit std::atomic<int> columns = 0;
    return columns;
}

} // namespace

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
    m_bytesBefore = BytesReadSoFar();
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

void WorkNote::SetSubject(Subject subject)
{
    const std::lock_guard lock(m_mutex);
    m_subject = std::move(subject);
}

void WorkNote::Hide()
{
    if (!m_thread.joinable())
        return;
    const std::lock_guard lock(m_mutex);
    EraseAtTheEnd();
    m_shown.clear();
}

void WorkNote::Run()
{
    constexpr std::chrono::milliseconds Patience(1000);
    constexpr std::chrono::milliseconds Pause(200);
    std::unique_lock lock(m_mutex);
    while (!m_wake.wait_for(lock, m_shown.empty() ? Patience : Pause, [this] { return m_ending; }))
        Show();
    EraseAtTheEnd();
    m_shown.clear();
}

/// Shows the note, in the place of the one that is shown.
void WorkNote::Show()
try {
    std::string text = Text();
    if (text == m_shown)
        return;
    EraseAtTheEnd();
    ColumnsShown() = static_cast<int>(text.size());
    WriteErrorsAtOnce(text);
    m_shown = std::move(text);
} catch (const std::bad_alloc&) {
    return; // the note stays as it is
}

std::string WorkNote::Text() const
{
    constexpr std::uint64_t Whole = 100;
    const std::uint64_t read = BytesReadSoFar() - m_bytesBefore;
    const std::size_t place = m_subject.reading.rfind("%s");
    if (place == std::string::npos || read >= m_subject.bytes)
        return m_subject.text;
    std::string text = m_subject.reading;
    return text.replace(place, 2, std::to_string(read * Whole / m_subject.bytes));
}

void WorkNote::EraseAtTheEnd() noexcept
{
    constexpr std::string_view Blanks = "                                        ";
    int left = ColumnsShown().exchange(0);
    if (left == 0)
        return;
    WriteErrorsAtOnce("\r");
    for (left += KeysShown; left > 0; left -= static_cast<int>(Blanks.size()))
        WriteErrorsAtOnce(Blanks.substr(0, static_cast<std::size_t>(left)));
    WriteErrorsAtOnce("\r");
}

CWaitCursor::CWaitCursor()
{
    WorkNote::Instance().Begin();
}

CWaitCursor::~CWaitCursor()
{
    WorkNote::Instance().End();
}
