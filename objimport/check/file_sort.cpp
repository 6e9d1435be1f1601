#include "objimport/check/file_sort.h"

#include "objimport/check/check_texts.h"

#include <algorithm>
#include <array>

namespace {

using namespace std::string_view_literals;

struct Beginning
{
    std::string_view bytes;
    LocalText sort;
};

constexpr std::array Beginnings{
    Beginning{"PK\x03\x04", FileSorts::Archive},
    Beginning{"\x1F\x8B", FileSorts::Archive},
    Beginning{"7z\xBC\xAF\x27\x1C", FileSorts::Archive},
    Beginning{"Rar!", FileSorts::Archive},
    Beginning{"BZh", FileSorts::Archive},
    Beginning{"\xFD"
              "7zXZ",
              FileSorts::Archive},
    Beginning{"\x28\xB5\x2F\xFD", FileSorts::Archive},
    Beginning{"\x89PNG", FileSorts::Image},
    Beginning{"\xFF\xD8\xFF", FileSorts::Image},
    Beginning{"GIF8", FileSorts::Image},
    Beginning{"II*\0"sv, FileSorts::Image},
    Beginning{"MM\0*"sv, FileSorts::Image},
    Beginning{"%PDF", FileSorts::Document},
    Beginning{"\x7F"
              "ELF",
              FileSorts::Program},
    Beginning{"MZ\x90", FileSorts::Program},
    Beginning{"glTF", FileSorts::OtherScene},
    Beginning{"ply\n", FileSorts::OtherScene},
};

/// Returns whether bytes are UTF-16 text: with a mark at its front, or every other byte mostly
/// zero.
bool IsUtf16(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return true;
    std::array<std::size_t, 2> zeros{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        zeros[i % 2] += bytes[i] == '\0' ? 1U : 0U;
    const auto [few, many] = std::minmax(zeros[0], zeros[1]);
    return bytes.size() >= 4 && many * 3 > bytes.size() && few * 8 < many;
}

} // namespace

bool ReportNoText(const CheckPlace& place, std::string_view firstBytes)
{
    const CheckPlace file{place.findings, place.file, 0};
    const auto* const known =
        std::find_if(Beginnings.begin(), Beginnings.end(),
                     [&](const Beginning& each) { return firstBytes.starts_with(each.bytes); });
    if (known != Beginnings.end()) {
        file.findings.AddBecause(file.file, 0, CheckTexts::OtherFile, Phrase{known->sort, {}});
        return true;
    }
    if (IsUtf16(firstBytes)) {
        file.Report(CheckTexts::Utf16);
        return true;
    }
    const auto zeros = std::count(firstBytes.begin(), firstBytes.end(), '\0');
    if (zeros * 10 > static_cast<std::ptrdiff_t>(firstBytes.size())) {
        file.Report(CheckTexts::Binary);
        return true;
    }
    return false;
}
