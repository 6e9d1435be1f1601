#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What the host was asked for while one file was imported. All texts are UTF-8.
struct ImportJournal
{
    struct Box
    {
        std::string text;
        std::string caption;
        unsigned int flags;
    };

    struct KernelError
    {
        std::string source;
        std::string text;
        int times = 1; ///< in a row
    };

    struct Refusal
    {
        std::string type; ///< "mesh", "curve", "point", "point_cloud", "brep", "loop" or "image"
        std::string reason;
        int number = 0; ///< which of its type, as they were offered, from 1; of a loop: its brep
    };

    std::vector<std::string> prints; ///< the finished text of each Print
    std::vector<Box> boxes;
    std::vector<KernelError> kernelErrors;
    std::vector<Refusal> refused;
    std::map<std::size_t, std::string>
        refusedNames;             ///< of the first that have one, by their places
    std::array<int, 5> offered{}; ///< of each kind of geometry to the document, breps to the repair
    bool cancelled = false;       ///< a prompt or dialog was
    bool outOfMemory = false;     ///< an allocation failed, whatever became of it
    bool zoomed = false;
    bool redrawn = false;
};

/// Returns the current journal: that of the running import, or of what happens outside one.
ImportJournal& CurrentJournal();

/// Notes geometry, or an image, that is refused, and why. `number` says which of its type it is; 0:
/// not known. Names are noted for the first thousand that have one.
void NoteRefused(std::string_view type, std::string reason, int number = 0, std::string name = {});

/// Notes that a plug-in does not keep to the contract: the call at which this was noticed, and what
/// is wrong. Goes to standard error and to the kernel errors, with the source "host".
void NoteGuestFault(std::string_view call, std::string_view fault);
