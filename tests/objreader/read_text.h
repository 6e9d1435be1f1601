#pragma once

#include "objreader/parse.h"

#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// What reading reports, one line each.
class ToldEvents : public ReadingEvents
{
public:
    std::vector<std::string> lines;

private:
    void OnBogusFace() override { lines.emplace_back("bogus face"); }
    void OnBadCorner(BadField field, int listLength, const char* token) override
    {
        lines.push_back("bad field " + std::to_string(field) + " of " + token + ", list of " +
                        std::to_string(listLength));
    }
    void OnWrongKnotCount() override { lines.emplace_back("wrong knot count"); }
    void OnUnsupportedCurve(CurveForm form) override
    {
        lines.push_back("unsupported curve " + std::to_string(form));
    }
    void OnUnsupportedSurface(CurveForm form) override
    {
        lines.push_back("unsupported surface " + std::to_string(form));
    }
    void OnMaterialLibrary(const std::string& name) override { lines.push_back("library " + name); }
};

/// The text of a file that has been read.
class ReadText
{
public:
    explicit ReadText(std::string_view text, const ImportChoices& importChoices = {})
        : choices(importChoices), tokenizer(Open(text)), reading(tokenizer, choices, events, file),
          parsed(ParseStatements(reading))
    {
    }
    ReadText(const ReadText&) = delete;
    ReadText& operator=(const ReadText&) = delete;

    /// Returns what the current record has received; fails when that is nothing.
    [[nodiscard]] Geometry& CurrentGeometry() const
    {
        EXPECT_NE(reading.currentGroup->geometry, nullptr);
        return reading.currentGroup->GeometryToFill();
    }

    ImportChoices choices;
    ToldEvents events;
    ObjFile file;
    CObjLineTokenizer tokenizer;
    ObjReading reading;
    bool parsed;

private:
    /// Returns a stream of these bytes.
    static std::FILE* Open(std::string_view text)
    {
        const std::filesystem::path path =
            std::filesystem::temp_directory_path() /
            ("read_text." + std::to_string(std::random_device()()) + ".obj");
        // "D" has Windows remove the file when it is closed; elsewhere it may be removed while it
        // is open.
        std::FILE* const stream = std::fopen(path.string().c_str(), "w+bD");
        if (stream == nullptr)
            throw std::runtime_error("cannot write " + path.string());
        std::remove(path.string().c_str());
        std::fwrite(text.data(), 1, text.size(), stream);
        std::rewind(stream);
        return stream;
    }
};

/// Returns the elements as a container that matchers know.
template <class Array>
auto ListOf(const Array& array)
{
    return std::vector(array.begin(), array.end());
}

/// Returns the corners of all faces.
inline std::vector<V_TN_IDX> CornersOf(const Geometry& geometry)
{
    std::vector<V_TN_IDX> corners;
    for (const FaceRun& run : geometry.faces)
        for (int row = run.firstValue; row < run.EndValue(); row += run.form.stride)
            corners.push_back(run.CornerAt(&run.block->values[row]));
    return corners;
}

/// Returns how many corners each face has.
inline std::vector<int> CornerCountsOf(const Geometry& geometry)
{
    std::vector<int> counts;
    for (const FaceRun& run : geometry.faces)
        for (int face = 0; face < run.faceCount; ++face)
            counts.push_back(static_cast<int>(run.FaceValues(face).size()) / run.form.stride);
    return counts;
}

/// Returns the corners as "v/vt/vn" with 0-based indices, -1 left out.
inline std::string Shown(const std::vector<V_TN_IDX>& corners)
{
    const auto index = [](int i) { return i == -1 ? std::string() : std::to_string(i); };
    std::string shown;
    for (const V_TN_IDX& corner : corners)
        shown += index(corner.vi) + '/' + index(corner.ti) + '/' + index(corner.ni) + ' ';
    return shown.substr(0, shown.size() - (shown.empty() ? 0 : 1));
}
