#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

/// Throws std::runtime_error when something does not happen within a minute.
inline void WaitUntil(const std::function<bool()>& condition, const std::string& what)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("this does not come about: " + what);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

/// A key that a person presses.
enum class Key
{
    Tab,
    ShiftTab,
    Space,
    Up,
    Down,
    Enter,
    Escape,
    F1
};

/// Runs objimport and uses its windows as a person would: with the mouse, with the keyboard and
/// with the close box of a window. What does not happen in time throws std::runtime_error.
class DialogDriver
{
public:
    static std::unique_ptr<DialogDriver> Start(const std::vector<std::string>& arguments);

    DialogDriver() = default;
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;
    virtual ~DialogDriver() = default;

    /// Waits until a window of that title is there, and directs input to it.
    virtual void WaitForWindow(const std::string& title) = 0;

    /// Clicks on a control of the options dialog. Windows before it that wait for an answer keep it
    /// from being reached.
    virtual void Click(int controlId) = 0;

    /// Presses keys, one after the other, in the window turned to.
    virtual void Press(const std::vector<Key>& keys) = 0;

    /// Clicks on the close box of the window turned to.
    virtual void CloseWindow() = 0;

    /// Waits until the program ends; returns its exit status.
    virtual int Wait() = 0;
};
