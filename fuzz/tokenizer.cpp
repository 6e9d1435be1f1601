// Lines are cut alike, however few bytes are read at a time.

#include "fuzz/own_folder.h"
#include "objreader/obj_line_tokenizer.h"

#include <vector>

namespace {

using Lines = std::vector<std::vector<std::string>>;

Lines Cut(std::string_view text, std::size_t blockSize)
{
    // A stream of no bytes cannot be opened in memory.
    std::string bytes(text);
    std::FILE* const stream =
        bytes.empty() ? std::fopen("/dev/null", "rb") : fmemopen(bytes.data(), bytes.size(), "rb");
    CObjLineTokenizer tokenizer(stream, blockSize);
    Lines lines;
    while (!tokenizer.AtEnd() && tokenizer.ReadLine()) {
        lines.emplace_back();
        for (int i = 0; i < tokenizer.TokenCount(); ++i)
            lines.back().emplace_back(tokenizer.Token(i));
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string_view text = Text(data, size);
    const Lines whole = Cut(text, CObjLineTokenizer::DefaultBlockSize);
    for (const std::size_t blockSize : {1U, 2U, 3U, 7U, 64U})
        Expect(Cut(text, blockSize) == whole);
    return 0;
}
