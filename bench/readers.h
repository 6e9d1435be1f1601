#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Something that reads an OBJ file.
class Reader
{
public:
    Reader() = default;
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    virtual ~Reader() = default;

    /// Reads the file and keeps what it holds. Throws std::runtime_error when that fails.
    virtual void Read(const std::string& path) = 0;

    /// Gives back what was read; this is not timed.
    virtual void Forget() = 0;
};

/// A reader under the name that `--filter` and the tables know it by.
struct NamedReader
{
    std::string_view name;
    std::unique_ptr<Reader> (*make)();
};

/// This project's readers, then those of the installed libraries.
[[nodiscard]] std::vector<NamedReader> Readers();

std::unique_ptr<Reader> MakeParseReader();
std::unique_ptr<Reader> MakeImportReader();
std::unique_ptr<Reader> MakeTinyObjLoaderReader();
std::unique_ptr<Reader> MakeAssimpReader();
