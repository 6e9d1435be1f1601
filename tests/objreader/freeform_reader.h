#pragma once

#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "objreader/group_object.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

/// A file's text read into a reader and, when asked, built into a document.
class FreeformReader
{
public:
    explicit FreeformReader(const std::string& text, double tolerance = 0.001) : doc{tolerance}
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        ConsoleApp::Instance().TakeJournal();
        std::ofstream(m_file, std::ios::binary) << text;
        m_path = m_file.wstring();
        reader = std::make_unique<CReadOBJ>(m_path.c_str(), doc, m_options);
        parsed = reader->Parse();
    }
    FreeformReader(const FreeformReader&) = delete;
    FreeformReader& operator=(const FreeformReader&) = delete;
    ~FreeformReader()
    {
        reader.reset(); // holds the file open
        std::error_code error;
        std::filesystem::remove(m_file, error);
    }

    [[nodiscard]] CReadOBJ::Geometry& Geometry() const
    {
        return reader->currentGroup->GeometryToFill();
    }

    [[nodiscard]] const GK_NurbsCurve& Curve() const { return *Geometry().curves.back(); }
    [[nodiscard]] VX_Brep& Brep() const { return *Geometry().breps.back(); }

    [[nodiscard]] const GK_NurbsSurface& Surface() const
    {
        return *GK_NurbsSurface::Cast(Brep().Surface(0));
    }

    template <class Geometry>
    [[nodiscard]] const Geometry& Object(int index) const
    {
        return *std::get<const Geometry*>(doc.Object(index).geometry);
    }

    static const ImportJournal& Journal() { return ConsoleApp::Instance().Journal(); }

    /// "type: reason" of what was refused, one a line.
    static std::string Refused()
    {
        std::string text;
        for (const ImportJournal::Refusal& refusal : Journal().refused)
            text += refusal.type + ": " + refusal.reason + "\n";
        return text;
    }

    ConsoleDoc doc;
    std::unique_ptr<CReadOBJ> reader;
    bool parsed = false;

private:
    const std::filesystem::path m_file =
        std::filesystem::path(testing::TempDir()) /
        (std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + ".obj");
    std::wstring m_path;
    CKelvoFileReadOptions m_options;
};

template <class Array>
std::vector<double> Values(const Array& array)
{
    return {array.begin(), array.end()};
}
