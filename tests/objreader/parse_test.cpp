#include "tests/objreader/read_text.h"

#include <gmock/gmock.h>

namespace {

TEST(Parse, ReportsWhichLibrariesAreNamed)
{
    const ReadText text("mtllib a.mtl\nMTLLIB  two\twords.mtl \nmtllib\nmtllib c\\d  e.mtl\n");
    EXPECT_TRUE(text.parsed);
    EXPECT_THAT(text.events.lines, testing::ElementsAre("library a.mtl", "library two words.mtl",
                                                        "library c\\d  e.mtl"));
}

#ifdef __linux__
TEST(Parse, OfAFileThatCannotBeReadIsFalse)
{
    // It opens like any file, but its first bytes cannot be read.
    CObjLineTokenizer tokenizer(L"/proc/self/mem");
    const ImportChoices choices;
    ToldEvents events;
    ObjFile file;
    ObjReading reading(tokenizer, choices, events, file);
    EXPECT_FALSE(ParseStatements(reading));
    EXPECT_TRUE(tokenizer.ReadFailed());
}
#endif

} // namespace
