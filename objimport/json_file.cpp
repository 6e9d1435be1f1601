#include "objimport/json_file.h"

#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/document_json.h"
#include "objimport/file_uses.h"
#include "objimport/program_error.h"

#include <new>

namespace {

[[noreturn]] void ThrowCannotWrite(const std::string& name, const std::string& why)
{
    const std::string target = name == "-" ? "to standard output" : name;
    throw ProgramError("cannot write " + target + ": " + why);
}

void WriteTo(std::FILE* stream, std::span<const ImportRecord> imports, const ConsoleDoc& doc)
{
    TextOutput output(stream);
    WriteDocumentJson(output, imports, doc);
    if (const std::string why = output.Finish(); !why.empty())
        throw std::runtime_error(why);
}

} // namespace

void CheckJsonFile(const std::string& name)
{
    if (name.empty() || name == "-")
        return;
    if (const std::string why = WhyUnwritable(PathFromUtf8(name)); !why.empty())
        ThrowCannotWrite(name, why);
}

void WriteJsonFile(const std::string& name, std::span<const ImportRecord> imports,
                   const ConsoleDoc& doc)
try {
    if (name == "-")
        return WriteTo(stdout, imports, doc);
    const std::filesystem::path path = PathFromUtf8(name);
    CheckIsNotUsed(path, doc, "the JSON");
    FileReplacement file(path, FileReplacement::Links::Follow);
    WriteTo(file.Stream(), imports, doc);
    file.Commit();
} catch (const ProgramError&) {
    throw;
} catch (const std::runtime_error& failure) {
    ThrowCannotWrite(name, failure.what());
} catch (const std::bad_alloc&) {
    ThrowCannotWrite(name, "out of memory");
}
