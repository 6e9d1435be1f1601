#pragma once

#include "console_host/app/console_app.h"
#include "geometry/brep_builder.h"
#include "tests/objreader/read_text.h"

/// The breps of a text's surfaces, before any repair.
class BuiltBreps
{
public:
    explicit BuiltBreps(const std::string& text, double tolerance = 0.001) : m_text(text)
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        ConsoleApp::Instance().TakeJournal();
        BrepBuilder builder(m_text.file.lists, m_text.file.trimCurves, tolerance);
        for (const SurfaceData& surface : m_text.CurrentGeometry().surfaces)
            m_breps.push_back(builder.MakeBrep(surface));
    }

    [[nodiscard]] bool Parsed() const { return m_text.parsed; }
    [[nodiscard]] const std::vector<std::unique_ptr<VX_Brep>>& All() const { return m_breps; }
    [[nodiscard]] const VX_Brep& Last() const { return *m_breps.back(); }

    [[nodiscard]] const GK_NurbsSurface& Surface() const
    {
        return *GK_NurbsSurface::Cast(Last().Surface(0));
    }

    static const ImportJournal& Journal() { return ConsoleApp::Instance().Journal(); }

private:
    ReadText m_text;
    std::vector<std::unique_ptr<VX_Brep>> m_breps;
};
