#pragma once

#include "objreader/stage_times.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Something that reads an OBJ file.
class Reader
{
public:
    Reader() = default;
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    virtual ~Reader() = default;

    /// Makes ready for Read; this is not timed. Throws std::runtime_error when that fails.
    virtual void Prepare(const std::string&) {}

    /// Reads the file and keeps what it holds. Throws std::runtime_error when that fails.
    virtual void Read(const std::string& path) = 0;

    /// Releases what was read; this is not timed.
    virtual void Forget() = 0;

    /// Returns how long the stages of the last Read took; nothing for a reader without stages.
    [[nodiscard]] virtual StageTimes Stages() const { return {}; }
};

enum class ReaderKind
{
    Floor, ///< a part of the work, which no reader can do without
    Own,
    Other ///< of another library
};

/// A reader under the name that the tables know it by.
struct NamedReader
{
    std::string name;
    ReaderKind kind;
    std::function<std::unique_ptr<Reader>()> make;
};

// Names of readers that results are compared by.
inline constexpr const char* BytesReader = "bytes";
inline constexpr const char* NumbersReader = "numbers";
inline constexpr const char* ParseReader = "parse";
inline constexpr const char* ImportReader = "import";
inline constexpr const char* ThreadedImportReader = "import_threads";

/// Returns the floors, this project's readers, then those of the installed libraries.
/// ThreadedImportReader is among them when `threadCount` is above 1 and an import can use that
/// many.
[[nodiscard]] std::vector<NamedReader> Readers(unsigned threadCount);

/// Reads the bytes of the file, in blocks, and does nothing with them.
std::unique_ptr<Reader> MakeBytesReader();
/// Converts the numbers of a text in memory, with the importer's own operations, and keeps nothing.
std::unique_ptr<Reader> MakeNumbersReader();
/// The parse alone, on one thread: nothing reaches the document.
std::unique_ptr<Reader> MakeParseReader();
/// All that an import does, until the objects stand in the document and the reader is gone.
std::unique_ptr<Reader> MakeImportReader(unsigned threadCount);
std::unique_ptr<Reader> MakeTinyObjLoaderReader();
std::unique_ptr<Reader> MakeAssimpReader();
