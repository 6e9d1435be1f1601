#pragma once

#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <type_traits>
#include <vector>

/// Threads that work together on one task at a time, for as long as the team lives. They are
/// started with the first task; where the system has no more of them, fewer do all the work.
class ThreadTeam
{
public:
    /// `count` threads, the one that gives the tasks being one of them; 0: one for each core.
    explicit ThreadTeam(unsigned count);
    ThreadTeam(const ThreadTeam&) = delete;
    ThreadTeam& operator=(const ThreadTeam&) = delete;
    ~ThreadTeam();

    [[nodiscard]] unsigned Count() const { return m_count; }

    /// As the constructor. To be called before the first task.
    void SetCount(unsigned count);

    /// Calls `work` on every thread of the team at the same time, with the number of the thread: 0
    /// is that of the calling one. Returns when all of them have returned, and passes on an
    /// exception that one of them has thrown, that of the calling thread first.
    template <class Work>
    void Run(const Work& work)
    {
        const auto call = [](const void* context, unsigned thread) {
            (*static_cast<const Work*>(context))(thread);
        };
        RunTask({&work, call});
    }

private:
    struct Task
    {
        const void* context = nullptr;
        void (*call)(const void* context, unsigned thread) = nullptr;
    };

    void RunTask(const Task& task);
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
