#pragma once

#include "objimport/exchange/exchange.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

/// The parts of a document that a STEP file can hold, in an assembly of the geometry library: each
/// brep, curve and point cloud with its name, layer and colour, and points that follow each other
/// and have equal attributes together.
class StepDocument
{
public:
    /// How many objects of a kind are in the assembly.
    struct Counts
    {
        std::size_t surfaces = 0; ///< breps
        std::size_t faces = 0;
        std::size_t curves = 0;
        std::size_t points = 0; ///< those of clouds as well
    };

    /// What is left out, by the reason.
    struct Left
    {
        std::size_t meshes = 0;
        std::map<std::string, std::size_t> surfaces;
        std::map<std::string, std::size_t> curves;
    };

    explicit StepDocument(const ExchangeDocument& document);
    StepDocument(const StepDocument&) = delete;
    StepDocument& operator=(const StepDocument&) = delete;
    ~StepDocument();

    [[nodiscard]] const Counts& Written() const;
    [[nodiscard]] const Left& LeftOut() const;

    /// Writes the assembly as a STEP file. Returns why that was not possible; empty when it was.
    std::string Write(std::FILE* stream) const;

private:
    class Assembly;
    std::unique_ptr<Assembly> m_assembly;
};
