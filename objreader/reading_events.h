#pragma once

#include "objreader/corner.h"
#include "objreader/freeform.h"

#include <string>

/// What others than the file's data have to learn while a file is read, each at the statement that
/// it stands in. Texts are valid during the call.
class ReadingEvents
{
public:
    ReadingEvents() = default;
    ReadingEvents(const ReadingEvents&) = delete;
    ReadingEvents& operator=(const ReadingEvents&) = delete;
    virtual ~ReadingEvents() = default;

    /// A face was rejected; the corners before the bad one stay.
    virtual void OnBogusFace() = 0;

    /// A field of this corner names none of the `listLength` elements that were read so far.
    virtual void OnBadCorner(BadField field, int listLength, const char* token) = 0;

    /// The knots of a curve are neither as many as it needs nor two more. Reading ends.
    virtual void OnWrongKnotCount() = 0;

    /// A curve, or a surface, has a form that is not supported. Reading ends.
    virtual void OnUnsupportedCurve(CurveForm form) = 0;
    virtual void OnUnsupportedSurface(CurveForm form) = 0;

    /// A material library is named.
    virtual void OnMaterialLibrary(const std::string& name) = 0;
};
