#include "objimport/saved_forms.h"

#include "console_host/app/printable.h"
#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/file_uses.h"
#include "objimport/program_error.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <new>
#include <string_view>
#include <utility>

namespace {

constexpr std::array<std::pair<std::string_view, ExchangeForm>, 4> Endings = {
    {{".glb", ExchangeForm::Glb},
     {".step", ExchangeForm::Step},
     {".stp", ExchangeForm::Step},
     {".png", ExchangeForm::Picture}}};

constexpr std::array<std::pair<std::string_view, ExchangeView>, 4> Views = {
    {{"iso", ExchangeView::Iso},
     {"top", ExchangeView::Top},
     {"front", ExchangeView::Front},
     {"right", ExchangeView::Right}}};

char LowerCase(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool EndsWith(std::string_view text, std::string_view ending)
{
    return text.size() >= ending.size() &&
           std::equal(ending.begin(), ending.end(), text.end() - std::ssize(ending),
                      [](char a, char b) { return a == LowerCase(b); });
}

[[noreturn]] void ThrowCannotWrite(const std::string& path, const std::string& why)
{
    throw ProgramError("cannot write " + path + ": " + why);
}

/// Throws when the file can not be written, as far as that is known before the import.
void CheckFile(const std::string& path, const ExchangeLibrary& library)
{
    if (const char* why = library.WhyMissing(*FormOfEnding(path)))
        ThrowCannotWrite(path, why);
    if (const std::string why = WhyUnwritable(PathFromUtf8(path)); !why.empty())
        ThrowCannotWrite(path, why);
}

template <class Record>
std::span<const Record> RecordsOf(const GK_ClassArray<Record>& table)
{
    return {table.Array(), static_cast<std::size_t>(table.Count())};
}

void WriteOutcome(TextOutput& output, const std::string& path, const ExchangeOutcome& outcome)
{
    output.Write(PrintableLine(path) + ": " + PrintableLine(outcome.contents) + "\n");
    for (const std::string& loss : outcome.losses)
        output.Write("  " + PrintableLine(loss) + "\n");
}

} // namespace

std::optional<ExchangeForm> FormOfEnding(const std::string& path)
{
    for (const auto& [ending, form] : Endings)
        if (EndsWith(path, ending))
            return form;
    return std::nullopt;
}

std::optional<ExchangeView> ViewOfName(const std::string& name)
{
    for (const auto& [known, view] : Views)
        if (name.size() == known.size() && EndsWith(name, known))
            return view;
    return std::nullopt;
}

std::optional<std::pair<int, int>> SizeOfText(const std::string& text)
{
    const auto isSide = [](int side) {
        return side >= ExchangePicture::LeastSide && side <= ExchangePicture::MostSide;
    };
    const char* const end = text.data() + text.size();
    std::pair<int, int> size;
    const auto [cross, widthError] = std::from_chars(text.data(), end, size.first);
    if (widthError != std::errc() || cross == end || LowerCase(*cross) != 'x')
        return std::nullopt;
    const auto [rest, heightError] = std::from_chars(cross + 1, end, size.second);
    if (heightError != std::errc() || rest != end || !isSide(size.first) || !isSide(size.second))
        return std::nullopt;
    return size;
}

ExchangeDocument ViewForExchange(const ConsoleDoc& doc, const DocumentOrigin& origin)
{
    ExchangeDocument view;
    view.layers = RecordsOf(doc.Layers());
    view.groups = RecordsOf(doc.Groups());
    view.materials = RecordsOf(doc.Materials());
    view.objects.reserve(static_cast<std::size_t>(doc.ObjectCount()));
    for (int i = 0; i < doc.ObjectCount(); ++i) {
        const DocumentObject object = doc.Object(i);
        view.objects.push_back({object.attributes, object.geometry});
    }
    view.sources = origin.sources;
    view.tolerance = doc.AbsoluteTolerance();
    view.isZUp = origin.isZUp;
    return view;
}

SavedForms::SavedForms(std::span<const std::string> paths, const ExchangePicture& picture)
    : m_picture(picture)
{
    for (const std::string& path : paths)
        if (!FormOfEnding(path))
            throw ProgramError("cannot save " + path +
                               ": its name has to end in .glb, .step, .stp or .png");
    if (!paths.empty())
        m_library.emplace();
    for (const std::string& path : paths)
        CheckFile(path, *m_library);
}

ExchangeOutcome SavedForms::WriteFile(const std::string& path, const ConsoleDoc& doc,
                                      const ExchangeDocument& view) const
try {
    const std::filesystem::path native = PathFromUtf8(path);
    CheckIsNotUsed(native, doc, "the saved form");
    FileReplacement file(native, FileReplacement::Links::Follow);
    const ExchangeRequest request{*FormOfEnding(path), &view, m_picture, file.Stream()};
    ExchangeOutcome outcome = m_library->Write(request);
    if (!outcome.error.empty())
        ThrowCannotWrite(path, outcome.error);
    file.Commit();
    return outcome;
} catch (const ProgramError&) {
    throw;
} catch (const std::runtime_error& failure) {
    ThrowCannotWrite(path, failure.what());
} catch (const std::bad_alloc&) {
    ThrowCannotWrite(path, "out of memory");
}

std::vector<std::string> SavedForms::Write(std::span<const std::string> paths,
                                           const ConsoleDoc& doc, const DocumentOrigin& origin,
                                           TextOutput* output) const
{
    std::vector<std::string> failures;
    if (paths.empty())
        return failures;
    const ExchangeDocument view = ViewForExchange(doc, origin);
    if (output != nullptr)
        output->Write('\n');
    for (const std::string& path : paths) {
        try {
            const ExchangeOutcome outcome = WriteFile(path, doc, view);
            if (output != nullptr)
                WriteOutcome(*output, path, outcome);
        } catch (const ProgramError& error) {
            failures.emplace_back(error.what());
        }
    }
    return failures;
}
