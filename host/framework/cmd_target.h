#pragma once

#include <span>

/// The root of the framework's classes. The module makes and owns all objects of the framework; all
/// of their operations are for the user-interface thread.
class CObject
{
public:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject() = default;
};

/// What a window reports to its owner.
enum class WindowMessage
{
    Click,      ///< a button, check box or radio button was clicked, by mouse or keyboard
    HelpRequest ///< the user asked the window for help, as with the F1 key; without a control
};

class CCmdTarget;

/// One line of a class's message map: which operation handles which message of which control.
struct MessageMapEntry
{
    WindowMessage message;
    int controlId; ///< 0 for a message of the window itself
    void (CCmdTarget::*handler)();
};

/// Something that handles messages by a map.
class CCmdTarget : public CObject
{
public:
    /// For the host: calls the handler that the message map names and returns true, or false when
    /// the map names none. What the handler throws passes through.
    bool Dispatch(WindowMessage message, int controlId);

protected:
    /// Returns the handlers of the class. The map lives as long as the module.
    [[nodiscard]] virtual std::span<const MessageMapEntry> MessageMap() const { return {}; }
};

/// Return lines of a message map, for the operations of a class derived from CCmdTarget.
template <class Target>
MessageMapEntry OnClick(int controlId, void (Target::*handler)())
{
    return {WindowMessage::Click, controlId, static_cast<void (CCmdTarget::*)()>(handler)};
}

template <class Target>
MessageMapEntry OnHelpRequest(void (Target::*handler)())
{
    return {WindowMessage::HelpRequest, 0, static_cast<void (CCmdTarget::*)()>(handler)};
}
