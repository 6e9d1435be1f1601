// What the import of a file reports while it is read, and by which ids it is localized.

#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "plugin/read_obj.h"
#include "tests/temporary_folder.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

const std::string Lists = "v 0 0 0 1\nv 1 0 0 2\nv 1 1 0 3\nv 0 1 0 4\nvp 0 0\nvp 1 0\n";

class ReadingMessages : public testing::Test
{
public:
    ReadingMessages()
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        ConsoleApp::Instance().TakeJournal();
    }
    ReadingMessages(const ReadingMessages&) = delete;
    ReadingMessages& operator=(const ReadingMessages&) = delete;
    ~ReadingMessages() override { ConsoleApp::Instance().SetStrings({}); }

protected:
    /// Reads the lists and these lines; returns what was reported.
    ImportJournal Read(const std::string& lines)
    {
        const std::wstring path = (m_folder.Write("scene.obj", Lists + lines)).wstring();
        ConsoleDoc doc(0.001);
        const CKelvoFileReadOptions options;
        CReadOBJ reader(path.c_str(), doc, options);
        m_parsed = reader.Parse();
        m_recordCount = reader.GroupObjectCount();
        return ConsoleApp::Instance().TakeJournal();
    }

    [[nodiscard]] bool Parsed() const { return m_parsed; }
    [[nodiscard]] int RecordCount() const { return m_recordCount; }

    static StringTable& Strings() { return ConsoleApp::Instance().Strings(); }

private:
    TemporaryFolder m_folder;
    bool m_parsed = false;
    int m_recordCount = 0;
};

std::string BadCorner(const char* field, int count, const char* token)
{
    return std::string("Encountered mesh face with bogus ") + field + " index (count is " +
           std::to_string(count) + "). Search for \"" + token + "\" in your file.\n";
}

TEST_F(ReadingMessages, SayWhatIsWrongWithFaces)
{
    EXPECT_THAT(Read("f 6 1 2\nvt 0 0\nf 1/9 2/1 3/1\nf 1//7 2//1 3//1\nf 1\n").prints,
                ElementsAre(BadCorner("vertex", 4, "6"), BadCorner("texture", 1, "1/9"),
                            BadCorner("normal", 0, "1//7"), BadCorner("normal", 0, "2//1"),
                            BadCorner("normal", 0, "3//1"), "Encountered bogus mesh face.\n"));
    EXPECT_TRUE(Parsed());
}

std::string Repeated(const std::string& text, int count)
{
    std::string repeated;
    while (count-- > 0)
        repeated += text;
    return repeated;
}

TEST_F(ReadingMessages, After25OfFacesOneMoreClosesTheList)
{
    Strings().Set(33339, L"%d bogus faces, no more.\n");
    Strings().Set(33343, L"%d bad corners, no more.\n");
    const struct
    {
        const char* what;
        std::string lines;
        std::size_t prints;
        const char* last;
    } cases[] = {
        {"25 faces", Repeated("f 1\n", 25), 25, "Encountered bogus mesh face.\n"},
        {"30 faces", Repeated("f 1\n", 30), 26, "25 bogus faces, no more.\n"},
        {"30 corners", Repeated("f 1 2 9\n", 30), 26, "25 bad corners, no more.\n"},
        {"both in one face", Repeated("f 8 9 1/1\n", 20), 26, "25 bad corners, no more.\n"},
    };
    for (const auto& [what, lines, prints, last] : cases) {
        SCOPED_TRACE(what);
        const ImportJournal journal = Read(lines);
        EXPECT_TRUE(Parsed());
        ASSERT_EQ(journal.prints.size(), prints);
        EXPECT_EQ(journal.prints.back(), last);
    }
}

TEST_F(ReadingMessages, RecordsAreCounted)
{
    Read("g a\no b\ng\nf 1 2 9\nf 1 2 3\n");
    EXPECT_EQ(RecordCount(), 4);
}

TEST_F(ReadingMessages, AKnotCountThatDoesNotFitIsPrinted)
{
    const std::string lines = "cstype bspline\ndeg 3\ncurv 0 1 1 2 3 4\nparm u 0 1\n";
    EXPECT_THAT(Read(lines).prints,
                ElementsAre("Knot count does not correspond with control point count in the "
                            "curve.\n"));
    Strings().Set(25987, L"knots");
    EXPECT_THAT(Read(lines).prints, ElementsAre("knots"));
    EXPECT_FALSE(Parsed());
}

// Each of the four texts of a box has its own id.
TEST_F(ReadingMessages, UnsupportedFormsShowTheirBoxOnce)
{
    const struct
    {
        const char* form;
        std::string statement;
        int firstId;
    } cases[] = {
        {"bmatrix", "curv 0 1 1 2\n", 12742},    {"cardinal", "curv2 1 2\n", 12746},
        {"taylor", "curv 0 1 1 2\n", 12750},     {"bmatrix", "surf 0 1 0 1\n", 12761},
        {"cardinal", "surf 0 1 0 1 1\n", 12765}, {"taylor", "surf 0 1 0 1\n", 12769},
    };
    for (const auto& [form, statement, firstId] : cases) {
        const std::string lines = std::string("cstype ") + form + "\n" + statement + statement;
        const ImportJournal journal = Read(lines);
        EXPECT_FALSE(Parsed());
        ASSERT_EQ(journal.boxes.size(), 1U);
        const char* const kind = statement[0] == 's' ? " surface" : " curve";
        EXPECT_THAT(journal.boxes[0].text,
                    testing::StartsWith(std::string("This file contains a ") + form + kind +
                                        " which is not yet supported.\nPlease e-mail"));

        for (int i = 0; i < 4; ++i)
            Strings().Set(firstId + i, std::wstring(1, static_cast<wchar_t>(L'a' + i)));
        const ImportJournal localized = Read(lines);
        EXPECT_EQ(localized.boxes[0].text, "abc");
        EXPECT_EQ(localized.boxes[0].caption, "d");
    }
}

} // namespace
