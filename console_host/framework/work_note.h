#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

/// The console's wait cursor: a note on standard error that the program is at work. It comes after
/// a second, and only when standard error is a terminal. A thread of its own waits for that second,
/// so that the work itself has nothing to do for it.
class WorkNote
{
public:
    static WorkNote& Instance();

    WorkNote(const WorkNote&) = delete;
    WorkNote& operator=(const WorkNote&) = delete;
    ~WorkNote();

    /// Begin and end work; they nest. Ending what was not begun does nothing and gives false.
    void Begin();
    bool End();

    /// How many begins have not been ended.
    [[nodiscard]] int Depth() const { return m_depth; }

    /// Takes the note off the terminal, because something else is about to be written; it comes
    /// again a second later.
    void Hide();

private:
    WorkNote() = default;

    void Run();
    void Erase();

    int m_depth = 0;
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_ending = false;
    bool m_shown = false;
};
