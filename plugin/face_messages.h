#pragma once

#include "objreader/reading_events.h"

/// Prints what is wrong with faces, up to a limit that all of an import share.
class FaceMessages
{
public:
    /// Prints that a face was rejected.
    void PrintBogusFace();

    /// Prints which field of a corner names none of the `listLength` elements.
    void PrintBadCorner(BadField field, int listLength, const char* token);

private:
    bool MayPrint(int closingMessageId);

    static constexpr int faceMessageLimit = 25;
    int faceMessageCount = 0;
    bool faceMessagesStopped = false;
};
