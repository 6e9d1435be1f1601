#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

/// The console's wait cursor: a note on standard error of what the program is at. It appears after
/// a second, and only when standard error is a terminal. A thread of its own waits for that second
/// and keeps the note up to date, so that the work itself has nothing to do for it.
class WorkNote
{
public:
    /// What the program is at.
    struct Subject
    {
        std::string text{"working ..."}; ///< in one line of the terminal

        /// While a file is read: the same with "%s" for the per cent of it that has been read, and
        /// how many bytes it has.
        std::string reading{};
        std::uint64_t bytes = 0;
    };

    static WorkNote& Instance();

    WorkNote(const WorkNote&) = delete;
    WorkNote& operator=(const WorkNote&) = delete;
    ~WorkNote();

    /// Begin and end work; they nest. Ending what was not begun does nothing and returns false.
    void Begin();
    bool End();

    /// Returns how many begins have not been ended.
    [[nodiscard]] int Depth() const { return m_depth; }

    /// Sets what the note says from now on.
    void SetSubject(Subject subject);

    /// Erases the note from the terminal, because something else is about to be written; it appears
    /// again a second later.
    void Hide();

    /// Takes the note off the terminal for good. May be called from a signal handler, after which
    /// the program has to end.
    static void EraseAtTheEnd() noexcept;

private:
    WorkNote() = default;

    void Run();
    void Show();
    [[nodiscard]] std::string Text() const;

    int m_depth = 0;
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_ending = false;
    Subject m_subject;
    std::string m_shown;             ///< what the terminal shows
    std::uint64_t m_bytesBefore = 0; ///< read by the process before the work began
};

/// Has the note say something for as long as the object lives.
class WorkStage
{
public:
    explicit WorkStage(WorkNote::Subject subject)
    {
        WorkNote::Instance().SetSubject(std::move(subject));
    }
    WorkStage(const WorkStage&) = delete;
    WorkStage& operator=(const WorkStage&) = delete;
    ~WorkStage() { WorkNote::Instance().SetSubject({}); }
};
