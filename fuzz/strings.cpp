// A table of texts, which stand in for the plug-in's own and are formatted with its arguments. As a
// text, it is shown so that it steers no terminal.

#include "console_host/app/console_app.h"
#include "console_host/app/printable.h"
#include "console_host/app/string_table.h"
#include "fuzz/own_folder.h"

#include "host/app/localize.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace {

void CheckShown(std::string_view text)
{
    const auto steers = [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; };
    const std::string line = PrintableLine(text);
    Expect(std::none_of(line.begin(), line.end(), steers));
    Expect(PrintableLine(line) == line);
    Expect(Printable(line) == line);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    CheckShown(Text(data, size));
    const OwnFolder& folder = OwnFolder::OfTheRun();
    ConsoleApp& app = ConsoleApp::Instance();
    app.SetPrintStream(nullptr);
    app.Strings() = StringTable::Load(folder.Write("strings.txt", Text(data, size)));
    app.Print(KvLocalizeString(L"Unable to find or open %s.  Materials will be ignored.\n", 24489),
              L"a.mtl");
    app.Print(KvLocalizeString(L"File had %i bogus indexes in it.\n", 24466), 7);
    app.Print(KvLocalizeString(L"%S|%5.2f|%c|%llx\n", 1), "text", 1.5, L'c', 255LL);
    app.Print(KvLocalizeString(L"%hhd|%hd|%ld|%jd|%td|%u|%hhu|%hu|%lu|%ju|%zu\n", 2), 1, 2, 3L,
              std::intmax_t{4}, std::ptrdiff_t{5}, 6U, 7, 8, 9UL, std::uintmax_t{10},
              std::size_t{11});
    app.Print(KvLocalizeString(L"%s|%S|%C|%p|%Lg|%*d\n", 3), static_cast<const wchar_t*>(nullptr),
              static_cast<const char*>(nullptr), 'c', static_cast<const void*>(&folder), 1.5L, 9,
              7);
    Expect(app.TakeJournal().prints.size() == 5);
    return 0;
}
