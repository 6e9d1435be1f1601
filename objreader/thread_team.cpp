#include "objreader/thread_team.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

ThreadTeam::ThreadTeam(unsigned count)
{
    SetCount(count);
}

void ThreadTeam::SetCount(unsigned count)
{
    m_count = count != 0 ? count : std::max(1U, std::thread::hardware_concurrency());
}

ThreadTeam::~ThreadTeam()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
        m_begun.notify_all();
    }
    for (std::thread& thread : m_threads)
        thread.join();
}

void ThreadTeam::RunTask(const Task& task)
{
    StartThreads();
    Begin(task);
    try {
        task.call(task.context, 0);
    } catch (...) {
        WaitForOthers();
        throw;
    }
    WaitForOthers();
    if (m_failure)
        std::rethrow_exception(std::exchange(m_failure, nullptr));
}

void ThreadTeam::StartThreads()
{
    if (std::exchange(m_started, true))
        return;
    try {
        m_threads.reserve(m_count - 1);
        for (unsigned thread = 1; thread < m_count; ++thread)
            m_threads.emplace_back([this, thread] { WorkAs(thread); });
    } catch (const std::system_error&) {
        // Those that were started do all the work.
        return;
    } catch (const std::bad_alloc&) {
        return;
    }
}

void ThreadTeam::Begin(const Task& task)
{
    const std::lock_guard lock(m_mutex);
    m_task = task;
    ++m_taskNumber;
    m_busy = m_threads.size();
    m_failure = nullptr;
    m_begun.notify_all();
}

void ThreadTeam::WaitForOthers()
{
    std::unique_lock lock(m_mutex);
    m_done.wait(lock, [this] { return m_busy == 0; });
}

void ThreadTeam::WorkAs(unsigned thread)
{
    std::unique_lock lock(m_mutex);
    for (unsigned done = 0;; done = m_taskNumber) {
        m_begun.wait(lock, [&] { return m_ending || m_taskNumber != done; });
        if (m_ending)
            return;
        const Task task = m_task;
        lock.unlock();
        std::exception_ptr failure;
        try {
            task.call(task.context, thread);
        } catch (...) {
            failure = std::current_exception();
        }
        lock.lock();
        if (failure && !m_failure)
            m_failure = failure;
        if (--m_busy == 0)
            m_done.notify_all();
    }
}
