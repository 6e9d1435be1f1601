#include "objimport/exchange/glb_notes.h"

#include "objimport/exchange/exchange_texts.h"

#include <algorithm>
#include <utility>

namespace {

tinygltf::Value TextList(std::vector<std::string> texts)
{
    tinygltf::Value::Array list;
    list.reserve(texts.size());
    for (std::string& text : texts)
        list.emplace_back(std::move(text));
    return tinygltf::Value(std::move(list));
}

} // namespace

GlbNotes::GlbNotes(const ExchangeDocument& document)
    : m_document(document), m_room((std::size_t{64} << 20U) + 128 * document.objects.size())
{
    for (std::size_t i = 0; i < document.layers.size(); ++i)
        m_layers.emplace(document.layers[i].id.bytes, i);
    for (const ExchangeSource& source : document.sources)
        m_sources.push_back(GK_wString(std::string_view(source.file)).Utf8());
}

bool GlbNotes::TakeRoom(std::size_t size)
{
    // Beside its bytes a text takes room for its own description.
    constexpr std::size_t OfEach = 64;
    if (size + OfEach > m_room)
        return false;
    m_room -= size + OfEach;
    return true;
}

std::vector<std::string> GlbNotes::PathOfLayer(std::size_t layer) const
{
    std::vector<std::string> path = {m_document.layers[layer].name.Utf8()};
    for (std::size_t below = layer;;) {
        const auto parent = m_layers.find(m_document.layers[below].parentId.bytes);
        // A layer is added after the one that it hangs below.
        if (parent == m_layers.end() || parent->second >= below)
            break;
        below = parent->second;
        path.push_back(m_document.layers[below].name.Utf8());
    }
    std::reverse(path.begin(), path.end());
    return path;
}

void GlbNotes::AddLayer(const GK_MdxObjectAttributes& attributes, tinygltf::Value::Object& notes)
{
    const auto layer = static_cast<std::size_t>(attributes.layerIndex);
    if (attributes.layerIndex < 0 || layer >= m_document.layers.size())
        return;
    std::vector<std::string> path = PathOfLayer(layer);
    for (const std::string& name : path)
        m_textSize += name.size();
    notes["layer"] = tinygltf::Value(path.back());
    if (path.size() > 1)
        notes["layerPath"] = TextList(std::move(path));
}

void GlbNotes::AddGroups(const GK_MdxObjectAttributes& attributes, tinygltf::Value::Object& notes)
{
    std::vector<std::string> names;
    for (const int group : attributes.Groups()) {
        if (group < 0 || static_cast<std::size_t>(group) >= m_document.groups.size())
            continue;
        names.push_back(m_document.groups[static_cast<std::size_t>(group)].name.Utf8());
        m_textSize += names.back().size();
        if (!TakeRoom(names.back().size())) {
            ++m_incomplete;
            return;
        }
    }
    if (!names.empty())
        notes["groups"] = TextList(std::move(names));
}

void GlbNotes::AddSource(std::size_t index, tinygltf::Value::Object& notes)
{
    const std::vector<ExchangeSource>& sources = m_document.sources;
    while (m_source + 1 < sources.size() && sources[m_source + 1].firstObject <= index)
        ++m_source;
    if (m_source >= sources.size() || sources[m_source].firstObject > index)
        return;
    m_textSize += m_sources[m_source].size();
    notes["source"] = tinygltf::Value(m_sources[m_source]);
}

tinygltf::Value GlbNotes::NotesFor(std::size_t index)
{
    const GK_MdxObjectAttributes& attributes = *m_document.objects[index].attributes;
    tinygltf::Value::Object notes;
    AddLayer(attributes, notes);
    AddGroups(attributes, notes);
    AddSource(index, notes);
    return notes.empty() ? tinygltf::Value() : tinygltf::Value(std::move(notes));
}

void GlbNotes::AddLosses(std::vector<std::string>& losses) const
{
    if (m_incomplete > 0)
        losses.push_back(Counted(m_incomplete, ExchangeTexts::GroupsLeftOut));
}
