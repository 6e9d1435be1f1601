// The whole reader: any bytes as an OBJ file, under options that depend on the bytes.

#include "fuzz/import_check.h"
#include "fuzz/own_folder.h"

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
        Expect(m_descriptor >= 0 && write(m_descriptor, data, size) == static_cast<ssize_t>(size));
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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const MemoryFile file(data, size);
    ImportAndCheck(file.Path().c_str(), std::accumulate(data, data + size, 0U));
    return 0;
}
