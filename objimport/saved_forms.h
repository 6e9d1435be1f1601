#pragma once

#include "console_host/app/document.h"
#include "objimport/exchange_library.h"
#include "objimport/text_output.h"

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// Returns the form that a file's ending calls for, in either case: .glb, .step or .stp, .png. None
/// for any other ending.
std::optional<ExchangeForm> FormOfEnding(const std::string& path);

/// Returns the view that --view names, and the picture's width and height from the value of --size,
/// "1200x900". None for any other text.
std::optional<ExchangeView> ViewOfName(const std::string& name);
std::optional<std::pair<int, int>> SizeOfText(const std::string& text);

/// What is to be known of a document beside what it holds.
struct DocumentOrigin
{
    std::vector<ExchangeSource> sources;
    bool isZUp = false;
};

/// Returns a view of the document, which must not change as long as that is used.
ExchangeDocument ViewForExchange(const ConsoleDoc& doc, const DocumentOrigin& origin);

/// Writes documents in the forms that --save asks for. The library that writes them is loaded when
/// there are any.
class SavedForms
{
public:
    /// Throws ProgramError, before anything is imported, when one of the files has no known ending,
    /// this build cannot write its form, or nothing can be written to it.
    SavedForms(std::span<const std::string> paths, const ExchangePicture& picture);

    /// Writes the document to each of the files, which are replaced when the new ones are whole,
    /// and tells, unless `output` is null, what is in them and what they cannot hold. Returns, for
    /// each that cannot be written or that the import has read, the file and why.
    std::vector<std::string> Write(std::span<const std::string> paths, const ConsoleDoc& doc,
                                   const DocumentOrigin& origin, TextOutput* output) const;

private:
    [[nodiscard]] ExchangeOutcome WriteFile(const std::string& path, const ConsoleDoc& doc,
                                            const ExchangeDocument& view) const;

    ExchangePicture m_picture;
    std::optional<ExchangeLibrary> m_library;
};
