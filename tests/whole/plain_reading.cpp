#include "tests/whole/plain_reading.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace {

using Words = std::vector<std::string>;
using Corner = std::array<int, 3>;

std::vector<Words> ReadLines(const std::string& path)
{
    std::vector<Words> lines;
    std::ifstream file(path, std::ios::binary);
    std::string line;
    bool continued = false;
    while (std::getline(file, line)) {
        while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
            line.pop_back();
        if (!continued)
            lines.emplace_back();
        const bool comment = line.starts_with("#");
        continued = !comment && line.ends_with("\\");
        if (continued)
            line.pop_back();
        std::istringstream words(comment ? "" : line);
        for (std::string word; words >> word;)
            lines.back().push_back(word);
    }
    return lines;
}

std::string Joined(const Words& words)
{
    std::string text;
    for (std::size_t i = 1; i < words.size(); ++i)
        text += words[i] + " ";
    return text;
}

class PlainReader
{
public:
    Counts Read(const std::string& path)
    {
        for (const Words& words : ReadLines(path))
            if (!words.empty())
                Take(words);
        m_counts.meshes = static_cast<int>(m_corners.size());
        for (const auto& [key, corners] : m_corners)
            m_counts.vertices += static_cast<int>(corners.size());
        m_counts.groups = static_cast<int>(m_groups.size());
        for (const std::string& library : m_libraries)
            ReadLibrary(std::filesystem::path(path).parent_path() / library);
        m_counts.materials = static_cast<int>(m_materials.size());
        return m_counts;
    }

private:
    void Take(const Words& words)
    {
        const std::string& keyword = words[0];
        if (keyword == "v" || keyword == "vt" || keyword == "vn")
            ++m_sizes[keyword];
        else if (keyword == "f")
            TakeFace(words);
        else if (keyword == "p")
            TakePoints(words);
        else if (keyword == "g")
            TakeGroups(words);
        else if (keyword == "mtllib")
            m_libraries.insert(words.begin() + 1, words.end());
        else if ((keyword == "o" || keyword == "usemtl") && words.size() > 1)
            m_names[keyword] = Joined(words);
    }

    void TakeGroups(const Words& words)
    {
        m_names["g"] = words.size() > 1 ? words[1] : "";
        m_groups.insert(words.begin() + 1, words.end());
    }

    void TakeFace(const Words& words)
    {
        auto& corners = m_corners[{m_names["g"], m_names["o"], m_names["usemtl"]}];
        for (std::size_t i = 1; i < words.size(); ++i)
            corners.insert(ReadCorner(words[i]));
        const int count = static_cast<int>(words.size()) - 1;
        m_counts.faces += count <= 4 ? 1 : count - 2;
        m_counts.ngons += count <= 4 ? 0 : 1;
    }

    void TakePoints(const Words& words)
    {
        if (words.size() == 2) {
            ++m_counts.points;
            return;
        }
        ++m_counts.clouds;
        m_counts.cloudPoints += static_cast<int>(words.size()) - 1;
    }

    Corner ReadCorner(const std::string& text)
    {
        constexpr std::array<const char*, 3> Lists{"v", "vt", "vn"};
        Corner corner{};
        std::istringstream fields(text);
        std::string field;
        for (std::size_t i = 0; i < corner.size() && std::getline(fields, field, '/'); ++i)
            if (!field.empty()) {
                const int index = std::stoi(field);
                corner[i] = index < 0 ? m_sizes[Lists[i]] + 1 + index : index;
            }
        return corner;
    }

    void ReadLibrary(const std::filesystem::path& path)
    {
        for (const Words& words : ReadLines(path.string()))
            if (words.size() > 1 && words[0] == "newmtl")
                m_materials.insert(Joined(words));
    }

    Counts m_counts;
    std::map<std::string, int> m_sizes;
    std::map<std::string, std::string> m_names;
    std::map<std::array<std::string, 3>, std::set<Corner>> m_corners;
    std::set<std::string> m_groups;
    std::set<std::string> m_libraries;
    std::set<std::string> m_materials;
};

} // namespace

Counts ReadPlainly(const std::string& path)
{
    return PlainReader().Read(path);
}
