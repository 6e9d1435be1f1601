#include "objreader/obj_reading.h"

ObjReading::ObjReading(CObjLineTokenizer& source, const ImportChoices& importChoices,
                       ReadingEvents& readingEvents, ObjFile& contents)
    : tokenizer(source), choices(importChoices), events(readingEvents), file(contents)
{
    groupName = objectName = materialName = file.names.Intern({});
    currentGroup = &file.groupObjects.FindOrAddGroupObject(groupName, objectName, materialName);
}
