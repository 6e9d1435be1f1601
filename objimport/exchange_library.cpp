#include "objimport/exchange_library.h"

#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/program_error.h"

namespace {

constexpr const char* What = "library for --save";

std::filesystem::path ExchangePath()
{
    const std::filesystem::path beside = ProgramFolder() / IMPORTOBJ_EXCHANGE;
    const std::filesystem::path installed =
        ProgramFolder() / IMPORTOBJ_MODULE_FOLDER / IMPORTOBJ_EXCHANGE;
    const std::filesystem::path& path =
        WhyUnreadable(beside).empty() || !WhyUnreadable(installed).empty() ? beside : installed;
    if (const std::string why = WhyUnreadable(path); !why.empty())
        throw ProgramError(std::string("cannot load the ") + What + " " + Utf8Path(path) + ": " +
                           why);
    return path;
}

template <class Function>
Function Export(const Library& library, const char* name)
{
    const Library::Function found = library.Find(name);
    if (found == nullptr)
        throw ProgramError(std::string("the ") + What + " lacks the export " + name);
    return reinterpret_cast<Function>(found);
}

} // namespace

ExchangeLibrary::ExchangeLibrary()
    : m_library(ExchangePath(), What),
      m_whyMissing(Export<ExchangeWhyMissing>(m_library, ExchangeWhyMissingName)),
      m_write(Export<ExchangeWrite>(m_library, ExchangeWriteName))
{
}

ExchangeOutcome ExchangeLibrary::Write(const ExchangeRequest& request) const
{
    ExchangeOutcome outcome;
    m_write(request, outcome);
    return outcome;
}
