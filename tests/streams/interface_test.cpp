#include "streams/Zelmar_Columns.h"
#include "streams/Zelmar_ITextDocStream.h"
#include "streams/Zelmar_OIndentStream.h"
#include "streams/Zelmar_RawText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <type_traits>

using namespace Zelmar;

// What code that reads and writes by streams is written against.
namespace {

static_assert(std::is_base_of_v<std::streambuf, LineBuf> && std::is_base_of_v<std::streambuf, ITextDocBuf>);
static_assert(std::is_base_of_v<std::istream, ITextDocStream> && std::is_base_of_v<OTextDocBuf, OIndentBuf>);
static_assert(std::is_base_of_v<OTextDocStream, OIndentStream> && std::is_base_of_v<OIndentStreamBase, OIndentStream>);
static_assert(std::is_base_of_v<std::ostream, OTextDocStream>);

TEST(StreamInterface, InputStreamIsBuiltOnStreamAndText) {
    std::istringstream source("ab");
    ITextDocStream onStream(source, 0, 1, 1, 0);
    ITextDocStream onText(std::string("ab"), 0, 1, 0, -1);
    onText.setTabSize(4);
    onText.setWsMode(2);
    EXPECT_EQ(onStream.get(), 'a');
    EXPECT_EQ(onStream.peek(), 'b');
    EXPECT_EQ(onStream.column(), 1);
    EXPECT_EQ(onText.line(), 1);
    EXPECT_EQ(onText.column(), 0);
    EXPECT_EQ(onText.tabSize() + onText.wsMode(), 6);
    EXPECT_TRUE(rewind(source));
    EXPECT_EQ(source.get(), 'a');
}

TEST(StreamInterface, IndentStreamTakesAllDestinations) {
    std::ostringstream sink;
    OIndentStream onStream(sink, "  ", false, 0, 4, 1, 0);
    OIndentStream onBuffer(sink.rdbuf(), onStream);
    OIndentStream onItself("", false, 0, 1, 1, 0);
    OIndentStream onText(std::string("x"), "", false, 0, 1, 1, 0);
    onStream << "a\n";
    onBuffer << "b\n";
    onItself << "c" << 1;
    onText << "y";
    EXPECT_EQ(sink.str(), "  a\n  b\n");
    EXPECT_EQ(onItself.str(), "c1");
    EXPECT_EQ(onText.str(), "xy");
    EXPECT_EQ(makeIndent(onStream, 4), "    ");
}

TEST(StreamInterface, GuardsAndSnapshotsServeAnIndentStream) {
    OIndentStream out("\t", false, 0, 4, 1, 0);
    {
        const IndentGuard indent(out, "> ");
        const KeepWsGuard keep(out, true);
        out << " a\n" << RawText(" b\n");
    }
    const IndentStreamState state = out;
    OIndentStream scratch(state);
    scratch << "x";
    EXPECT_EQ(out.str(), ">  a\n>  b\n");
    EXPECT_EQ(out.indent(), "\t");
    EXPECT_FALSE(out.keepLeadingWs());
    EXPECT_EQ(scratch.line(), 3);
    EXPECT_EQ(scratch.column(), 5);
}

} // namespace
