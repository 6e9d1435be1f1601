#include "tests/check/import_losses.h"

#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/runtime/native_path.h"
#include "plugin/read_obj.h"
#include "tests/check/checked_text.h"
#include "tests/temporary_folder.h"

#include "host/app/file_type.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <set>
#include <sstream>

namespace {

/// Counts what reading reports.
class CountingEvents : public ReadingEvents
{
public:
    std::size_t bogusFaces = 0;
    std::vector<std::string> libraries;

private:
    void OnBogusFace() override { ++bogusFaces; }
    void OnBadCorner(BadField, int, const char*) override {}
    void OnWrongKnotCount() override {}
    void OnUnsupportedCurve(CurveForm) override {}
    void OnUnsupportedSurface(CurveForm) override {}
    void OnMaterialLibrary(const std::string& name) override { libraries.push_back(name); }
};

/// Returns the lines of a text, whichever line ends it has, without these.
std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c != '\n' && c != '\r' && c != '\0') {
            line += c;
            continue;
        }
        i += c == '\r' && i + 1 < text.size() && text[i + 1] == '\n' ? 1U : 0U;
        lines.push_back(std::move(line));
        line.clear();
    }
    if (!line.empty())
        lines.push_back(line);
    return lines;
}

/// How a file is read, without its document.
struct Reading
{
    explicit Reading(const std::filesystem::path& path)
        : tokenizer(WidePath(path).c_str()), reading(tokenizer, choices, events, file),
          parsed(ParseStatements(reading))
    {
    }

    ImportChoices choices;
    CountingEvents events;
    ObjFile file;
    CObjLineTokenizer tokenizer;
    ObjReading reading;
    bool parsed;
};

/// Returns the number of the first line that reading ends with: the beginning of the file up to it,
/// and nothing shorter, is not read to its end.
std::size_t LineOfEnd(const std::vector<std::string>& lines)
{
    const TemporaryFolder folder;
    const auto ends = [&](std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i)
            text += lines[i] + "\n";
        // Some file systems write out at once what replaces a file.
        std::filesystem::remove(folder / "part.obj");
        return !Reading(folder.Write("part.obj", text)).parsed;
    };
    std::size_t read = 0;
    std::size_t failed = lines.size();
    while (failed - read > 1) {
        const std::size_t middle = (read + failed) / 2;
        (ends(middle) ? failed : read) = middle;
    }
    return failed;
}

std::string TrimmedText(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::set<std::string> NamesThatArrive(const Reading& read, const ConsoleDoc& doc)
{
    std::set<std::string> names(read.events.libraries.begin(), read.events.libraries.end());
    for (const auto& record : read.file.groupObjects)
        for (const GK_String* name : {record->groupName, record->objectName, record->materialName})
            names.insert(TrimmedText(name->Array()));
    for (const auto& list : read.file.groupNames)
        for (const GK_String* name : list)
            names.insert(TrimmedText(name->Array()));
    for (int i = 0; i < doc.Materials().Count(); ++i)
        names.insert(doc.Materials()[i].Name().Utf8());
    return names;
}

/// Returns the lines of a library up to the first colour without three numbers, where its reading
/// ends.
std::vector<std::string> ReadLinesOfLibrary(const std::filesystem::path& path)
{
    std::vector<std::string> lines = LinesOf(ReadBytes(path));
    const auto endsReading = [](const std::string& line) {
        std::istringstream words(line);
        std::string keyword;
        words >> keyword;
        const auto count = std::distance(std::istream_iterator<std::string>(words),
                                         std::istream_iterator<std::string>());
        return (keyword == "Kd" || keyword == "Ks" || keyword == "Ka") && count != 3;
    };
    lines.erase(std::find_if(lines.begin(), lines.end(), endsReading), lines.end());
    return lines;
}

/// Adds the names of some lines that did not arrive.
void AddLostNames(const std::vector<std::string>& lines, const std::set<std::string>& arrived,
                  const std::set<std::string>& keywords, std::set<std::string>& lost)
{
    for (const std::string& line : lines) {
        const std::string text = TrimmedText(line);
        const std::size_t end = std::min(text.find_first_of(" \t"), text.size());
        std::string keyword = text.substr(0, end);
        const std::string rest = TrimmedText(text.substr(end));
        if (line.starts_with('#') || rest.empty() || !keywords.contains(keyword))
            continue;
        if (keyword != "g") {
            if (!arrived.contains(rest))
                lost.insert(rest);
            continue;
        }
        // Names that a record has no room for do not arrive, whatever is in them.
        std::istringstream words(rest);
        std::string joined;
        bool all = true;
        for (std::string word; words >> word;) {
            joined.append(joined.empty() ? "" : " ").append(word);
            all = all && std::all_of(word.begin(), word.end(),
                                     [](char c) { return c > ' ' && c < '\x7F'; });
        }
        if (!all)
            lost.insert(joined);
    }
}

} // namespace

ImportLosses LossesOfImport(const std::filesystem::path& path)
{
    ConsoleApp& app = ConsoleApp::Instance();
    app.SetPrintStream(nullptr);
    app.TakeJournal();
    ConsoleDoc doc(0.001);
    const CKelvoFileReadOptions options;
    const std::wstring wide = WidePath(path);
    {
        CReadOBJ reader(wide.c_str(), doc, options);
        reader.Parse();
        reader.Build();
    }
    const ImportJournal journal = app.TakeJournal();
    const Reading read(path);
    std::vector<std::string> lines = LinesOf(ReadBytes(path));

    ImportLosses losses;
    losses.badIndices = static_cast<std::size_t>(read.file.BogusIndexCount);
    losses.refusedFaces = read.events.bogusFaces;
    losses.endsEarly = !read.parsed;
    for (const auto& refusal : journal.refused)
        ++losses.refused[refusal.type];
    losses.missingLibraries = static_cast<std::size_t>(
        std::count_if(journal.prints.begin(), journal.prints.end(), [](const std::string& print) {
            return print.starts_with("Unable to find");
        }));
    const bool hasJoinedLines = ReadBytes(path).find('\\') != std::string::npos;
    if (hasJoinedLines)
        return losses;
    if (!read.parsed) {
        const std::size_t last = LineOfEnd(lines);
        losses.unreadLines = lines.size() - last;
        lines.resize(last);
    }
    std::set<std::string>& lost = losses.changedNames;
    const std::set<std::string> arrived = NamesThatArrive(read, doc);
    AddLostNames(lines, arrived, {"g", "o", "usemtl", "mtllib"}, lost);
    for (const std::string& library :
         std::set(read.events.libraries.begin(), read.events.libraries.end()))
        if (const auto file = NativePath(WidePath(path.parent_path() / library));
            std::filesystem::exists(file))
            AddLostNames(ReadLinesOfLibrary(file), arrived, {"newmtl"}, lost);
    return losses;
}

ImportLosses LossesToldByCheck(const std::filesystem::path& path)
{
    const CheckedFile checked(path);
    const auto count = [&](CheckKind kind) { return checked.findings.CountOf(kind); };
    ImportLosses losses;
    losses.badIndices = count(CheckKind::BadIndex);
    losses.refusedFaces = count(CheckKind::RefusedFace);
    losses.endsEarly = count(CheckKind::EndsParse) > 0;
    losses.missingLibraries = count(CheckKind::LibraryMissing);
    for (const Finding& finding : checked.findings.Kept()) {
        const std::string text = GK_wString(finding.what.text.text).Utf8();
        const auto tells = [&text](const char* words) {
            return text.find(words) != std::string::npos;
        };
        if (tells("the curve is refused"))
            ++losses.refused["curve"];
        else if (tells("the surface is refused") || tells("and is refused"))
            ++losses.refused["brep"];
        else if (tells("the mesh") && tells("is refused"))
            ++losses.refused["mesh"];
        else if (tells("the point cloud is refused"))
            ++losses.refused["point_cloud"];
        else if (tells("the point is refused"))
            ++losses.refused["point"];
        else if (tells("is dropped") && finding.kind == CheckKind::OpenLoop && !tells("trim %s is"))
            ++losses.refused["loop"];
    }
    if (ReadBytes(path).find('\\') != std::string::npos)
        return losses;
    losses.unreadLines = checked.totals.unread;
    for (const Finding& finding : checked.findings.Kept())
        if (finding.kind == CheckKind::NameChanged)
            losses.changedNames.insert(std::get<std::string>(finding.what.arguments.front()));
    return losses;
}

std::ostream& operator<<(std::ostream& stream, const ImportLosses& losses)
{
    stream << losses.badIndices << " bad indices, " << losses.refusedFaces << " refused faces, "
           << (losses.endsEarly ? "ends early, " : "") << losses.unreadLines << " lines unread, "
           << losses.missingLibraries << " libraries missing";
    for (const auto& [type, count] : losses.refused)
        stream << ", " << count << " " << type;
    for (const std::string& name : losses.changedNames)
        stream << ", name \"" << name << '"';
    return stream;
}
