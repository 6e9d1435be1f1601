#include "bench/readers.h"
#include "objreader/numbers.h"
#include "objreader/obj_line_tokenizer.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File Open(const std::string& path)
{
    File file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (file == nullptr)
        throw std::runtime_error(path + ": cannot be opened");
    return file;
}

class BlockReader : public Reader
{
public:
    void Read(const std::string& path) override
    {
        const File file = Open(path);
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
        m_block.resize(CObjLineTokenizer::DefaultBlockSize);
        while (std::fread(m_block.data(), 1, m_block.size(), file.get()) == m_block.size()) {
        }
    }

    void Forget() override {}

private:
    std::vector<char> m_block;
};

/// Goes through the lines of a text that ends with a line end and with padding. Only numbers
/// matter; what holds none is skipped as a line.
class NumberWalk
{
public:
    NumberWalk(const char* text, const char* end) : m_text(text), m_end(end) {}

    /// Returns a value that depends on every number, so that none can be left out.
    double Run()
    {
        while (m_text != m_end) {
            if (m_text[0] == 'v')
                TakeReals();
            else if (m_text[0] == 'f' && m_text[1] == ' ')
                TakeIndices();
            SkipLine();
        }
        return m_realSum + static_cast<double>(m_indexSum);
    }

private:
    void TakeReals()
    {
        m_text += m_text[1] == ' ' ? 2 : 3;
        double value = 0.0;
        while (SkipSpaces(m_text) && TakeReal(m_text, value))
            m_realSum += value;
    }

    void TakeIndices()
    {
        ++m_text;
        while (*m_text != '\n') {
            const std::uint64_t digits = LoadDigits(++m_text);
            const unsigned digitBits = DigitBits(digits);
            if (digitBits == 0)
                continue; // a sign, or an empty field
            m_indexSum += DigitsValue(digits, digitBits);
            m_text += digitBits / 8;
        }
    }

    void SkipLine()
    {
        if (*m_text != '\n')
            m_text = static_cast<const char*>(
                std::memchr(m_text, '\n', static_cast<std::size_t>(m_end - m_text)));
        ++m_text;
    }

    const char* m_text;
    const char* m_end;
    double m_realSum = 0.0;
    std::uint64_t m_indexSum = 0;
};

class NumberReader : public Reader
{
public:
    void Prepare(const std::string& path) override
    {
        const File file = Open(path);
        m_size = std::filesystem::file_size(path);
        m_text.resize(m_size + CObjLineTokenizer::Padding);
        if (m_size == 0 || std::fread(m_text.data(), 1, m_size, file.get()) != m_size ||
            m_text[m_size - 1] != '\n')
            throw std::runtime_error(path + ": no text that ends with a line end");
    }

    void Read(const std::string&) override
    {
        m_sum = NumberWalk(m_text.data(), m_text.data() + m_size).Run();
    }

    void Forget() override { m_text = {}; }

private:
    std::vector<char> m_text;
    std::size_t m_size = 0;
    volatile double m_sum = 0.0;
};

} // namespace

std::unique_ptr<Reader> MakeBytesReader()
{
    return std::make_unique<BlockReader>();
}

std::unique_ptr<Reader> MakeNumbersReader()
{
    return std::make_unique<NumberReader>();
}
