#include "console_host/app/document.h"

#include "console_host/app/import_journal.h"
#include "console_host/app/soundness.h"

#include <new>

namespace {

constexpr const char* NoMemory = "out of memory";

bool IsIndexOf(int index, int count)
{
    return index >= 0 && index < count;
}

/// Counts what is offered and returns which of its kind it is, from 1. Breps are counted by the
/// repair.
int CountOffered(const AnyGeometry& geometry)
{
    int& count = CurrentJournal().offered[geometry.index()];
    return std::holds_alternative<const GK_Brep*>(geometry) ? count : ++count;
}

/// Notes a refusal as far as there is memory to; always false.
bool Refuse(const char* type, const std::string& reason, int number)
{
    try {
        NoteRefused(type, reason, number);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return false;
}

} // namespace

ConsoleDoc::ConsoleDoc(double absoluteTolerance) : m_absoluteTolerance(absoluteTolerance) {}

void ConsoleDoc::CheckAttributes(const char* call, const GK_MdxObjectAttributes& attributes) const
{
    if (!IsIndexOf(attributes.layerIndex, Layers().Count()))
        NoteGuestFault(call, "a layer index that the document does not have");
    if (attributes.materialIndex != -1 && !IsIndexOf(attributes.materialIndex, Materials().Count()))
        NoteGuestFault(call, "a material index that the document does not have");
    if (!attributes.GroupsAreBelow(Groups().Count()))
        NoteGuestFault(call, "a group index that the document does not have");
}

std::string ConsoleDoc::WhyRefused(const AnyGeometry& geometry)
{
    if (m_addsToFailure > 0 && --m_addsToFailure == 0)
        return "it was made to fail";
    if (std::visit([](const auto* any) { return any == nullptr; }, geometry))
        NoteGuestFault("AddObject", "an object without geometry");
    return WhyUnsound(geometry);
}

bool ConsoleDoc::AddObject(std::unique_ptr<CKelvoObject> object, bool, bool)
{
    if (object == nullptr) {
        NoteGuestFault("AddObject", "no object");
        return false;
    }
    const AnyGeometry geometry = GeometryOf(*object);
    const char* kind = KindOf(geometry);
    const int number = CountOffered(geometry);
    try {
        if (const std::string reason = WhyRefused(geometry); !reason.empty())
            return Refuse(kind, reason, number);
        CheckAttributes("AddObject", object->Attributes());
        if (auto* mesh = dynamic_cast<CKelvoMeshObject*>(object.get()))
            ReplaceUnsoundDirections(*mesh->Mesh());
        m_entries.push_back({std::move(object), nullptr, {}});
    } catch (const std::bad_alloc&) {
        return Refuse(kind, NoMemory, number);
    }
    return true;
}

bool ConsoleDoc::AddPointObject(const GK_3dPoint& point, const GK_MdxObjectAttributes& attributes,
                                const CKelvoHistory*, bool)
{
    const int number = CountOffered(&point);
    try {
        if (const std::string reason = WhyUnsound(&point); !reason.empty())
            return Refuse("point", reason, number);
        const bool shared = !m_pointAttributes.empty() && m_pointAttributes.back() == attributes;
        if (!shared) {
            CheckAttributes("AddPointObject", attributes);
            m_pointAttributes.push_back(attributes);
        }
        m_entries.push_back({nullptr, &m_pointAttributes.back(), point});
    } catch (const std::bad_alloc&) {
        return Refuse("point", NoMemory, number);
    }
    return true;
}

void ConsoleDoc::GetViewList(CKelvoViewList& views, bool modelViews, bool)
{
    views.Empty();
    if (modelViews)
        views.Append(&m_view);
}

void ConsoleDoc::Redraw()
{
    CurrentJournal().redrawn = true;
}

DocumentObject ConsoleDoc::Object(int index) const
{
    const Entry& entry = m_entries[static_cast<std::size_t>(index)];
    if (entry.object == nullptr)
        return {entry.pointAttributes, &entry.point};
    return {&entry.object->Attributes(), GeometryOf(*entry.object)};
}
