#pragma once

#include "objreader/import_choices.h"
#include "objreader/obj_file.h"
#include "objreader/obj_line_tokenizer.h"
#include "objreader/reading_events.h"

#include <string>

/// A file that is being read: what its statements come from and go to, and what they leave for
/// those that follow. All that it refers to must outlive it.
struct ObjReading
{
    /// Makes the first record, whose three names are empty, current.
    ObjReading(CObjLineTokenizer& source, const ImportChoices& importChoices,
               ReadingEvents& readingEvents, ObjFile& contents);

    CObjLineTokenizer& tokenizer;
    const ImportChoices& choices;
    ReadingEvents& events;
    ObjFile& file;

    Group_Object* currentGroup = nullptr; ///< receives geometry; never null
    const GK_String* groupName = nullptr; ///< the current names
    const GK_String* objectName = nullptr;
    const GK_String* materialName = nullptr;
    int groupNames = -1;         ///< those of the last "g" statement; -1: none
    bool groupNamesUsed = false; ///< a record has them

    FreeformAttributes freeform;

    StageTimes times; ///< what the stages of reading have taken

    std::string joinedName; ///< scratch
};
