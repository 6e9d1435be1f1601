#include "tests/exchange/glb_reading.h"

#include "objimport/exchange/write_form.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>

namespace {

std::string AllBytes(std::FILE* stream)
{
    std::string bytes(static_cast<std::size_t>(std::ftell(stream)), '\0');
    std::rewind(stream);
    EXPECT_EQ(std::fread(bytes.data(), 1, bytes.size(), stream), bytes.size());
    return bytes;
}

double ValueAt(const unsigned char* bytes, int component)
{
    const auto read = [bytes](auto value) {
        std::memcpy(&value, bytes, sizeof value);
        return static_cast<double>(value);
    };
    if (component == TINYGLTF_COMPONENT_TYPE_FLOAT)
        return read(float{});
    return component == TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT ? read(std::uint32_t{})
                                                             : read(std::uint16_t{});
}

bool LeaveEncoded(tinygltf::Image*, int, std::string*, std::string*, int, int, const unsigned char*,
                  int, void*)
{
    return true;
}

void CheckBounds(const ReadGlb& glb, int accessor)
{
    const tinygltf::Accessor& described = glb.model.accessors[static_cast<std::size_t>(accessor)];
    ASSERT_EQ(described.minValues.size(), 3U);
    ASSERT_EQ(described.maxValues.size(), 3U);
    const auto values = glb.Values(accessor);
    for (std::size_t i = 0; i < 3; ++i) {
        const auto [low, high] =
            std::minmax_element(values.begin(), values.end(),
                                [i](const auto& a, const auto& b) { return a[i] < b[i]; });
        EXPECT_EQ((*low)[i], described.minValues[i]);
        EXPECT_EQ((*high)[i], described.maxValues[i]);
    }
}

void CheckPrimitive(const ReadGlb& glb, const tinygltf::Primitive& primitive)
{
    const auto positions = glb.Values(primitive.attributes.at("POSITION"));
    CheckBounds(glb, primitive.attributes.at("POSITION"));
    for (const auto& [name, accessor] : primitive.attributes) {
        const auto values = glb.Values(accessor);
        EXPECT_EQ(values.size(), positions.size()) << name;
        for (const auto& value : values) {
            EXPECT_TRUE(std::isfinite(value[0] + value[1] + value[2])) << name;
            if (name == "NORMAL") {
                EXPECT_NEAR(std::hypot(value[0], value[1], value[2]), 1.0, 1e-4);
            }
        }
    }
    ASSERT_LT(primitive.material, static_cast<int>(glb.model.materials.size()));
    if (primitive.mode != TINYGLTF_MODE_TRIANGLES)
        return;
    const auto corners = glb.Values(primitive.indices);
    EXPECT_EQ(corners.size() % 3, 0U);
    for (const auto& corner : corners)
        EXPECT_LT(corner[0], static_cast<double>(positions.size()));
}

void CheckFile(const ReadGlb& glb)
{
    const tinygltf::Model& model = glb.model;
    for (const tinygltf::BufferView& view : model.bufferViews) {
        EXPECT_LE(view.byteOffset + view.byteLength, model.buffers.at(0).data.size());
        EXPECT_EQ(view.byteOffset % 4, 0U);
    }
    for (const tinygltf::Mesh& mesh : model.meshes)
        for (const tinygltf::Primitive& primitive : mesh.primitives)
            CheckPrimitive(glb, primitive);
}

} // namespace

const tinygltf::Primitive& ReadGlb::PrimitiveOf(const tinygltf::Node& node) const
{
    return model.meshes.at(static_cast<std::size_t>(node.mesh)).primitives.at(0);
}

std::vector<std::array<double, 4>> ReadGlb::Values(int accessor) const
{
    const tinygltf::Accessor& described = model.accessors.at(static_cast<std::size_t>(accessor));
    const tinygltf::BufferView& view =
        model.bufferViews.at(static_cast<std::size_t>(described.bufferView));
    const auto step = static_cast<std::size_t>(described.ByteStride(view));
    const auto componentSize = static_cast<std::size_t>(
        tinygltf::GetComponentSizeInBytes(static_cast<std::uint32_t>(described.componentType)));
    const auto components = static_cast<std::size_t>(
        tinygltf::GetNumComponentsInType(static_cast<std::uint32_t>(described.type)));
    EXPECT_LE(described.byteOffset + step * described.count, view.byteLength);
    const unsigned char* from =
        model.buffers.at(0).data.data() + view.byteOffset + described.byteOffset;
    std::vector<std::array<double, 4>> values(described.count);
    for (std::array<double, 4>& value : values) {
        for (std::size_t i = 0; i < components; ++i)
            value[i] = ValueAt(from + i * componentSize, described.componentType);
        from += step;
    }
    return values;
}

std::vector<std::array<double, 4>> ReadGlb::Attribute(const tinygltf::Node& node,
                                                      const char* name) const
{
    const auto& attributes = PrimitiveOf(node).attributes;
    const auto found = attributes.find(name);
    return found == attributes.end() ? std::vector<std::array<double, 4>>() : Values(found->second);
}

std::string ReadGlb::ImageBytes(int image) const
{
    const tinygltf::BufferView& view = model.bufferViews.at(
        static_cast<std::size_t>(model.images.at(static_cast<std::size_t>(image)).bufferView));
    const unsigned char* first = model.buffers.at(0).data.data() + view.byteOffset;
    return {first, first + view.byteLength};
}

ReadGlb WriteAndRead(const ExchangeDocument& document)
{
    ReadGlb glb;
    std::FILE* stream = std::tmpfile();
    WriteForm({ExchangeForm::Glb, &document, {}, stream}, glb.outcome);
    glb.bytes = AllBytes(stream);
    std::fclose(stream);
    EXPECT_EQ(glb.outcome.error, "");

    tinygltf::TinyGLTF reader;
    reader.SetImageLoader(LeaveEncoded, nullptr);
    std::string error;
    std::string warning;
    EXPECT_TRUE(reader.LoadBinaryFromMemory(
        &glb.model, &error, &warning, reinterpret_cast<const unsigned char*>(glb.bytes.data()),
        static_cast<unsigned int>(glb.bytes.size())))
        << error;
    EXPECT_EQ(error + warning, "");
    CheckFile(glb);
    return glb;
}
