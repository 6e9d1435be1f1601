#pragma once

#include "host/runtime/work_sharing.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

/// Threads that work together on one task at a time, for as long as the team lives. They are
/// started with the first task; where the system has no more of them, fewer do all the work.
class ThreadTeam : public KelvoWorkSharing
{
public:
    /// `count` threads, the one that gives the tasks being one of them; 0: one for each core.
    explicit ThreadTeam(unsigned count);
    ~ThreadTeam() override;

    /// As the constructor. To be called before the first task.
    void SetCount(unsigned count);

    [[nodiscard]] unsigned ThreadCount() const override { return m_count; }

private:
    void RunTask(const Task& task) override;
    void StartThreads();
    void WorkAs(unsigned thread);
    void Begin(const Task& task);
    void WaitForOthers();

    unsigned m_count = 1;
    bool m_started = false;
    std::vector<std::thread> m_threads;

    std::mutex m_mutex; ///< of all that follows
    std::condition_variable m_begun;
    std::condition_variable m_done;
    Task m_task;
    unsigned m_taskNumber = 0;
    std::size_t m_busy = 0; ///< threads that have not finished the task
    std::exception_ptr m_failure;
    bool m_ending = false;
};
