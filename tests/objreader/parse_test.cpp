#include "tests/objreader/reader_test.h"

namespace {

using Parse = ReaderTest;

#ifdef __linux__
TEST_F(Parse, OfAFileThatCannotBeReadGivesFalse)
{
    const CKelvoFileReadOptions options;
    // It opens like any file, but its first bytes are nobody's.
    CReadOBJ reader(L"/proc/self/mem", *doc, options);
    EXPECT_FALSE(reader.Parse());
    EXPECT_TRUE(reader.tokenizer.ReadFailed());
}
#endif

} // namespace
