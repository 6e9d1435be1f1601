#pragma once

#include "objimport/check/file_finder.h"
#include "objimport/check/findings.h"
#include "objimport/check/material_names.h"
#include "objimport/check/statement_counts.h"
#include "objreader/obj_line_tokenizer.h"

#include <cstdio>

/// Holds one material library against the format.
class MtlChecker
{
public:
    /// Takes the open stream over. All that it refers to must outlive the object.
    MtlChecker(std::FILE* stream, const CheckPlace& place, FileFinder& finder,
               MaterialNames& materials, NameChecks& names);

    /// Reads the library; to be called once.
    void Check();

    [[nodiscard]] const StatementCounts& Counts() const { return m_counts; }
    [[nodiscard]] std::size_t TextureCount() const { return m_textureCount; }

private:
    bool ReadLine();
    bool CheckStatement();
    bool CheckColor();
    void CheckNumber();
    void CheckName();
    void CheckTexture(const char* between, const char* after);
    void CheckTextureFile(const std::string& name, bool isThere);
    void EndHere();

    CObjLineTokenizer m_tokenizer;
    std::string m_raw;
    CheckPlace m_place;
    std::size_t m_nextLine = 1;
    FileFinder& m_finder;
    MaterialNames& m_materials;
    NameChecks& m_names;
    StatementCounts m_counts;
    StatementCounts m_ignored;
    std::size_t m_textureCount = 0;
};
