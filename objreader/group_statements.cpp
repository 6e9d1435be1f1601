#include "objreader/obj_reading.h"
#include "objreader/statements.h"

namespace {

/// Returns the list for the names of a "g" statement, which is empty. A record that was made under
/// the last "g" keeps the names of that.
GK_SimpleArray<const GK_String*>& NewGroupNames(ObjReading& reading)
{
    auto& lists = reading.file.groupNames;
    if (reading.groupNames < 0 || reading.groupNamesUsed) {
        lists.emplace_back();
        reading.groupNames = static_cast<int>(lists.size()) - 1;
        reading.groupNamesUsed = false;
    }
    lists.back().Empty();
    return lists.back();
}

/// Makes the record of the current names current. A morph target has one record only.
bool SelectGroupObject(ObjReading& reading)
{
    if (reading.choices.ImportAsMorphTarget)
        return true;
    Group_Object& record = reading.file.groupObjects.FindOrAddGroupObject(
        reading.groupName, reading.objectName, reading.materialName);
    reading.currentGroup = &record;
    if (record.groupNames < 0 && reading.groupNames >= 0 &&
        !reading.file.groupNames.back().IsEmpty()) {
        record.groupNames = reading.groupNames;
        reading.groupNamesUsed = true;
    }
    return true;
}

/// Reads a name of one or more words. False, and `name` unchanged, when there are none.
bool ReadJoinedName(ObjReading& reading, const GK_String*& name)
{
    if (!JoinName(reading))
        return false;
    name = reading.file.names.Intern(reading.joinedName);
    return true;
}

} // namespace

bool JoinName(ObjReading& reading)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    if (tokenizer.TokenCount() < 2)
        return false;
    reading.joinedName = tokenizer.Token(1);
    for (int i = 2; i < tokenizer.TokenCount(); ++i) {
        reading.joinedName += ' ';
        reading.joinedName += tokenizer.Token(i);
    }
    return true;
}

bool ReadGroupName(ObjReading& reading)
{
    GK_SimpleArray<const GK_String*>& names = NewGroupNames(reading);
    for (int i = 1; i < reading.tokenizer.TokenCount(); ++i)
        names.Append(reading.file.names.Intern(reading.tokenizer.Token(i)));

    if (names.IsEmpty())
        reading.groupName = reading.file.names.Intern({});
    else
        reading.groupName = reading.choices.ReverseGroupOrder ? *names.Last() : names[0];
    return SelectGroupObject(reading);
}

bool ReadObjectName(ObjReading& reading)
{
    return !ReadJoinedName(reading, reading.objectName) || SelectGroupObject(reading);
}

bool ReadMaterialUse(ObjReading& reading)
{
    return reading.choices.IgnoreTextures || !ReadJoinedName(reading, reading.materialName) ||
           SelectGroupObject(reading);
}

bool ReadMaterialLibrary(ObjReading& reading)
{
    if (!JoinName(reading))
        return false;
    reading.events.OnMaterialLibrary(reading.joinedName);
    return true;
}
