#pragma once

#include "objimport/exchange/exchange.h"

#include <array>
#include <string>
#include <tiny_gltf.h>
#include <vector>

/// A GLB that was written, read back.
struct ReadGlb
{
    tinygltf::Model model;
    ExchangeOutcome outcome;
    std::string bytes; ///< the file

    [[nodiscard]] const tinygltf::Node& Node(std::size_t index) const { return model.nodes[index]; }

    /// Returns the only primitive of a node's mesh.
    [[nodiscard]] const tinygltf::Primitive& PrimitiveOf(const tinygltf::Node& node) const;

    /// Returns the values of an accessor as they stand in the file, those that are missing 0.
    [[nodiscard]] std::vector<std::array<double, 4>> Values(int accessor) const;

    /// Returns the values of an attribute of the node's mesh; none when it has no such attribute.
    [[nodiscard]] std::vector<std::array<double, 4>> Attribute(const tinygltf::Node& node,
                                                               const char* name) const;

    /// Returns the bytes of an image.
    [[nodiscard]] std::string ImageBytes(int image) const;
};

/// Writes a document and reads it back. What is wrong with the file as such fails the test: bounds,
/// indices, normals, numbers that are not finite.
ReadGlb WriteAndRead(const ExchangeDocument& document);
