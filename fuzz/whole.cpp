// The whole reader: any bytes as an OBJ file, under options that depend on the bytes.

#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/framework/work_note.h"
#include "objreader/group_object.h"
#include "objreader/read_obj.h"

#include <cstdlib>
#include <numeric>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// A file in memory that can be opened by a path.
class MemoryFile
{
public:
    MemoryFile(const unsigned char* data, std::size_t size) : m_descriptor(memfd_create("obj", 0))
    {
        if (m_descriptor < 0 || write(m_descriptor, data, size) != static_cast<ssize_t>(size))
            std::abort();
    }

    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(m_descriptor); }

    [[nodiscard]] std::wstring Path() const
    {
        return L"/proc/self/fd/" + std::to_wstring(m_descriptor);
    }

private:
    int m_descriptor;
};

void SetOptions(CReadOBJ& reader, unsigned int choice)
{
    reader.HowToAddGs = static_cast<int>(choice % 4);
    reader.UseONames = (choice & 4U) != 0;
    reader.ImportAsMorphTarget = (choice & 24U) == 24U;
    reader.ReverseGroupOrder = (choice & 32U) != 0;
    reader.ZUp = (choice & 64U) != 0;
    reader.IgnoreTextures = (choice & 128U) != 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    ConsoleApp::Instance().SetPrintStream(nullptr);
    const MemoryFile file(data, size);
    const std::wstring path = file.Path();
    ConsoleDoc doc(0.001);
    const CKelvoFileReadOptions options;
    {
        CReadOBJ reader(path.c_str(), doc, options);
        SetOptions(reader, std::accumulate(data, data + size, 0U));
        reader.Parse();
        reader.Build();
    }
    for (const ImportJournal::KernelError& error :
         ConsoleApp::Instance().TakeJournal().kernelErrors)
        if (error.source == "host") // a rule of the host was broken
            std::abort();
    if (WorkNote::Instance().Depth() != 0)
        std::abort();
    return 0;
}
