#include "bench/readers.h"

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <stdexcept>

namespace {

/// With the steps that make of a file what the whole import makes of it: distinct corners, normals.
class AssimpReader : public Reader
{
public:
    void Read(const std::string& path) override
    {
        constexpr unsigned Steps = aiProcess_JoinIdenticalVertices | aiProcess_GenSmoothNormals;
        if (m_importer.ReadFile(path, Steps) == nullptr)
            throw std::runtime_error(std::string("assimp: ") + m_importer.GetErrorString());
    }

    void Forget() override { m_importer.FreeScene(); }

private:
    Assimp::Importer m_importer;
};

} // namespace

std::unique_ptr<Reader> MakeAssimpReader()
{
    return std::make_unique<AssimpReader>();
}
