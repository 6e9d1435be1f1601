#include "bench/readers.h"

#include <stdexcept>
#include <tiny_obj_loader.h>

namespace {

class TinyObjLoaderReader : public Reader
{
public:
    void Read(const std::string& path) override
    {
        std::string warnings;
        std::string errors;
        constexpr bool Triangulate = false;
        if (!tinyobj::LoadObj(&m_attributes, &m_shapes, &m_materials, &warnings, &errors,
                              path.c_str(), nullptr, Triangulate))
            throw std::runtime_error("tinyobjloader: " + errors);
    }

    void Forget() override
    {
        m_attributes = {};
        m_shapes = {};
        m_materials = {};
    }

private:
    tinyobj::attrib_t m_attributes;
    std::vector<tinyobj::shape_t> m_shapes;
    std::vector<tinyobj::material_t> m_materials;
};

} // namespace

std::unique_ptr<Reader> MakeTinyObjLoaderReader()
{
    return std::make_unique<TinyObjLoaderReader>();
}
