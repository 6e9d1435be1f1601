#pragma once

#include "objimport/check/findings.h"

#include <map>
#include <set>
#include <string>

/// The names that an OBJ file and its libraries use, and what becomes of them.
class MaterialNames
{
public:
    /// Notes that a library defines a material, and reports it when one did before.
    void Define(const CheckPlace& place, const std::string& name);

    /// Notes that the OBJ file uses a material.
    void Use(const CheckPlace& place, const std::string& name);

    /// Reports the materials that are used and not defined.
    void Finish(CheckPlace place) const;

    [[nodiscard]] std::size_t DefinedCount() const { return m_defined.size(); }
    [[nodiscard]] std::size_t UsedCount() const { return m_used.size(); }

private:
    struct Place
    {
        int file;
        std::size_t line;
    };

    std::map<std::string, Place> m_defined;
    std::map<std::string, Place> m_used; ///< where it is used first
};

/// Reports names that are not imported as they stand in the file, each once.
class NameChecks
{
public:
    /// `raw` is what stands in the file, `taken` the name that the import takes.
    void Check(const CheckPlace& place, const std::string& raw, const std::string& taken);

private:
    std::set<std::string, std::less<>> m_reported;
};
