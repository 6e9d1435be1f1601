#pragma once

#include "objreader/import_choices.h"
#include "objreader/obj_file.h"

#include "host/app/doc.h"
#include "host/geokit/object_attributes.h"

#include <vector>

/// Document objects are added as ordinary ones, not as references to a linked file.
inline constexpr bool AddAsReference = false;

/// The layers, groups, names and materials of the document objects of a file.
class ObjectAttributes
{
public:
    /// All three must outlive the object.
    ObjectAttributes(const ObjFile& file, const ImportChoices& choices, CKelvoDoc& doc);

    /// Sets the layer, groups and name of a record's objects that the choices call for. False for
    /// an unknown `HowToAddGs`.
    bool MakeAttributes(const Group_Object& record, GK_MdxObjectAttributes& attributes);

    /// Sets the material of a record's objects when the document has one of its name.
    void SetMaterial(const Group_Object& record, GK_MdxObjectAttributes& attributes) const;

    /// Finds or adds the groups or layers of a record's group names, once for all records that
    /// share them.
    void EnterGroupNames(const Group_Object& record);

private:
    /// What has become of the names of one "g" statement in the document.
    struct EnteredNames
    {
        bool entered = false;              ///< which sets the following
        GK_MdxObjectAttributes attributes; ///< layer and groups of the objects under these names
    };

    [[nodiscard]] bool GroupNamesMatter() const;
    void SetName(GK_MdxObjectAttributes& attributes, const GK_String* name);
    int FindOrAddGroup(const GK_wString& name);
    int FindOrAddLayer(const GK_wString& name, GK_UUID& parentId);

    const ObjFile& m_file;
    const ImportChoices& m_choices;
    CKelvoDoc& m_doc;
    std::vector<EnteredNames> m_entered;     ///< by the file's lists of group names
    const GK_String* m_wideNameOf = nullptr; ///< whose wide form the following is
    GK_wString m_wideName;
};
