#include "bench/scene_writers.h"
#include "bench/text_sink.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <vector>

namespace {

/// How many v, vt and vn have been written.
using ListCounts = std::array<long long, 3>;

constexpr std::array<std::string_view, 3> ListKeywords{"v", "vt", "vn"};
constexpr std::array<std::string_view, 4> NameKeywords{"g", "o", "usemtl", "s"};

std::vector<std::string> SplitWords(const std::string& line)
{
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

std::optional<double> NumberOf(const std::string& word)
{
    double number = 0.0;
    const char* const end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

/// One model of the mix. Its text is kept as words, so that every copy costs writing only.
class Model
{
public:
    explicit Model(const std::filesystem::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        ListCounts counts{};
        for (std::string line; std::getline(file, line);)
            TakeLine(SplitWords(line), counts);
        m_counts = counts;
    }

    /// Writes one of its copies, beside the others, after so many list elements of what came
    /// before, and counts its own.
    void Write(TextSink& sink, std::size_t copy, ListCounts& counts) const
    {
        const double shift = 1.25 * (m_greatestX - m_leastX) * static_cast<double>(copy);
        for (const Line& line : m_lines) {
            if (line.decimals >= 0) {
                sink << "v ";
                sink.WriteFixed(line.x + shift, line.decimals);
                sink << " ";
            }
            sink << line.text;
            for (const Corner& corner : line.corners)
                WriteCorner(sink, corner, counts);
            sink << "\n";
        }
        for (std::size_t list = 0; list < counts.size(); ++list)
            counts[list] += m_counts[list];
    }

    [[nodiscard]] bool HasFaces() const
    {
        return std::ranges::any_of(m_lines, [](const Line& line) { return !line.corners.empty(); });
    }

private:
    /// 1-based within the model; 0: none.
    using Corner = std::array<long long, 3>;

    struct Line
    {
        std::string text{}; ///< without keyword and x of a position, without the corners of a face
        double x = 0.0;
        int decimals = -1; ///< of x; below 0: the line is no position
        std::vector<Corner> corners{};
    };

    void TakeLine(const std::vector<std::string>& words, ListCounts& counts)
    {
        if (words.size() < 2)
            return;
        const auto list = std::ranges::find(ListKeywords, words[0]);
        if (list != ListKeywords.end())
            TakeVertex(words, counts[static_cast<std::size_t>(list - ListKeywords.begin())]);
        else if (words[0] == "f")
            TakeFace(words, counts);
        else if (std::ranges::find(NameKeywords, words[0]) != NameKeywords.end())
            m_lines.push_back({Join(words)});
    }

    void TakeVertex(const std::vector<std::string>& words, long long& count)
    {
        const bool numbers = std::all_of(words.begin() + 1, words.end(), NumberOf);
        if (!numbers || words.size() < (words[0] == "vt" ? 3 : 4))
            return;
        if (words[0] == "v")
            TakePosition(words);
        else
            m_lines.push_back({Join(words)});
        ++count;
    }

    void TakePosition(const std::vector<std::string>& words)
    {
        constexpr std::size_t MostDecimals = 20;
        const std::size_t point = words[1].find('.');
        const std::size_t decimals =
            point == std::string::npos ? 1 : std::min(words[1].size() - point - 1, MostDecimals);
        const double x = NumberOf(words[1]).value_or(0.0);
        m_leastX = std::min(m_leastX, x);
        m_greatestX = std::max(m_greatestX, x);
        m_lines.push_back({Join({words.begin() + 2, words.end()}), x, static_cast<int>(decimals)});
    }

    void TakeFace(const std::vector<std::string>& words, const ListCounts& counts)
    {
        Line line{"f"};
        for (std::size_t i = 1; i < words.size(); ++i) {
            const std::optional<Corner> corner = CornerOf(words[i], counts);
            if (!corner)
                return;
            line.corners.push_back(*corner);
        }
        if (line.corners.size() >= 3 && HaveSameFields(line.corners))
            m_lines.push_back(std::move(line));
    }

    static bool HaveSameFields(const std::vector<Corner>& corners)
    {
        return std::ranges::all_of(corners, [&](const Corner& corner) {
            return (corner[1] == 0) == (corners[0][1] == 0) &&
                   (corner[2] == 0) == (corners[0][2] == 0);
        });
    }

    /// Returns the corner of a word; nothing when an index names nothing that came before.
    static std::optional<Corner> CornerOf(const std::string& word, const ListCounts& counts)
    {
        Corner corner{};
        std::istringstream stream(word);
        std::size_t list = 0;
        for (std::string field; std::getline(stream, field, '/'); ++list) {
            if (list == corner.size())
                return std::nullopt;
            if (field.empty())
                continue;
            const auto number = static_cast<long long>(NumberOf(field).value_or(0.0));
            corner[list] = number < 0 ? counts[list] + number + 1 : number;
            if (corner[list] < 1 || corner[list] > counts[list])
                return std::nullopt;
        }
        if (corner[0] == 0)
            return std::nullopt;
        return corner;
    }

    static std::string Join(const std::vector<std::string>& words)
    {
        std::string text = words[0];
        for (std::size_t i = 1; i < words.size(); ++i)
            text += " " + words[i];
        return text;
    }

    static void WriteCorner(TextSink& sink, const Corner& corner, const ListCounts& counts)
    {
        sink << " " << corner[0] + counts[0];
        if (corner[1] != 0)
            sink << "/" << corner[1] + counts[1];
        if (corner[2] != 0)
            sink << (corner[1] != 0 ? "/" : "//") << corner[2] + counts[2];
    }

    std::vector<Line> m_lines;
    double m_leastX = std::numeric_limits<double>::max();
    double m_greatestX = std::numeric_limits<double>::lowest();
    ListCounts m_counts{};
};

/// In the order of their names, so that every run comes to the same.
std::vector<Model> ReadModels(const std::string& folder)
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file() && entry.path().extension() == ".obj")
            paths.push_back(entry.path());
    std::ranges::sort(paths);
    std::vector<Model> models;
    for (const std::filesystem::path& path : paths) {
        Model model(path);
        if (model.HasFaces())
            models.push_back(std::move(model));
    }
    return models;
}

} // namespace

void WriteModelMix(const std::string& folder, const std::string& path, std::size_t bytes)
{
    const std::vector<Model> models = ReadModels(folder);
    if (models.empty())
        throw std::runtime_error(folder + ": no OBJ file with faces is there");
    TextSink sink(path);
    ListCounts counts{};
    for (std::size_t i = 0; sink.Written() < bytes; ++i)
        models[i % models.size()].Write(sink, i / models.size(), counts);
    sink.Close();
}
