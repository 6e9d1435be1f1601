#pragma once

#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "geometry/document_objects.h"
#include "tests/objreader/read_text.h"

/// An empty document, and a journal of what is reported meanwhile.
class DocumentTest : public testing::Test
{
public:
    DocumentTest()
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        ConsoleApp::Instance().TakeJournal();
    }
    DocumentTest(const DocumentTest&) = delete;
    DocumentTest& operator=(const DocumentTest&) = delete;
    ~DocumentTest() override { ConsoleApp::Instance().TakeJournal(); }

protected:
    /// Adds what was read to the document, which is emptied first; returns the result.
    bool Build(ReadText& text, double tolerance = 0.001)
    {
        ConsoleApp::Instance().TakeJournal();
        doc = std::make_unique<ConsoleDoc>(tolerance);
        StageTimes times;
        ThreadTeam team(1);
        return DocumentObjects(text.file, text.choices, *doc, {team}, nullptr, times).Build();
    }

    /// Does the same with a text.
    bool Build(std::string_view text)
    {
        ReadText read(text);
        EXPECT_TRUE(read.parsed);
        return Build(read);
    }

    static const ImportJournal& Journal() { return ConsoleApp::Instance().Journal(); }

    /// Returns "type: reason" of what was refused, one a line.
    static std::string Refused()
    {
        std::string text;
        for (const ImportJournal::Refusal& refusal : Journal().refused)
            text += refusal.type + ": " + refusal.reason + "\n";
        return text;
    }

    template <class Geometry>
    [[nodiscard]] const Geometry& Object(int index) const
    {
        return *std::get<const Geometry*>(doc->Object(index).geometry);
    }

    std::unique_ptr<ConsoleDoc> doc = std::make_unique<ConsoleDoc>(0.001);
};
