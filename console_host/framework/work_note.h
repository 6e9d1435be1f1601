#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

/// The console's wait cursor: a note on standard error that the program is at work. It appears
/// after a second, and only when standard error is a terminal. A thread of its own waits for that
/// second, so that it costs the work itself nothing.
class WorkNote
{
public:
    static WorkNote& Instance();

    WorkNote(const WorkNote&) = delete;
    WorkNote& operator=(const WorkNote&) = delete;
    ~WorkNote();

    /// Begin and end work; they nest. Ending what was not begun does nothing and returns false.
    void Begin();
    bool End();

    /// Returns how many begins have not been ended.
    [[nodiscard]] int Depth() const { return m_depth; }

    /// Erases the note from the terminal, because something else is about to be written; it appears
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
