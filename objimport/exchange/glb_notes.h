#pragma once

#include "objimport/exchange/exchange.h"

#include <cstddef>
#include <map>
#include <string>
#include <tiny_gltf.h>
#include <vector>

/// What the nodes of a glTF file say of the objects beside their geometry: layer, groups and the
/// file that the object came from. Names that very many objects repeat very often are left out at
/// some point, so that they cannot grow out of proportion to the document.
class GlbNotes
{
public:
    explicit GlbNotes(const ExchangeDocument& document);

    /// Returns the notes for an object. To be called for one object after the other.
    tinygltf::Value NotesFor(std::size_t index);

    /// Returns the length of all texts of the notes.
    [[nodiscard]] std::size_t TextSize() const { return m_textSize; }

    /// Appends what is not in the file.
    void AddLosses(std::vector<std::string>& losses) const;

private:
    /// Takes the room for so many bytes; false when there is none.
    bool TakeRoom(std::size_t size);
    void AddLayer(const GK_MdxObjectAttributes& attributes, tinygltf::Value::Object& notes);
    void AddGroups(const GK_MdxObjectAttributes& attributes, tinygltf::Value::Object& notes);
    void AddSource(std::size_t index, tinygltf::Value::Object& notes);

    /// Returns the name of a layer after those of the layers that it hangs below.
    [[nodiscard]] std::vector<std::string> PathOfLayer(std::size_t layer) const;

    const ExchangeDocument& m_document;
    std::map<std::array<std::uint8_t, 16>, std::size_t> m_layers; ///< by their ids
    std::vector<std::string> m_sources;
    std::size_t m_source = 0;
    std::size_t m_room;
    std::size_t m_textSize = 0;
    std::size_t m_incomplete = 0; ///< objects without some of their notes
};
