#include "src/Norvane_FormatDriver.h"

#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Norvane::FormatDriver;
using Norvane::FormatOptions;
using Norvane::PropertySet;

/// Answers a given number of calls with true, and every later one with false.
class CountedUpdate : public Norvane::UpdateFunctor {
public:
    explicit CountedUpdate(std::size_t goOn) : goOn_(goOn) {}
    bool operator()(const std::string& format) override {
        texts_.push_back(format);
        return texts_.size() <= goOn_;
    }
    const std::vector<std::string>& texts() const { return texts_; }

private:
    std::size_t goOn_;
    std::vector<std::string> texts_;
};

class ThrowingUpdate : public Norvane::UpdateFunctor {
public:
    bool operator()(const std::string&) override { throw std::runtime_error("stop"); }
};

struct Result {
    std::int32_t count = 0;
    std::string output;
    bool outputGood = false;
    Trn::MessageList messages;
};

FormatOptions optionsOf(const PropertySet& scheme) {
    return FormatOptions(scheme, Norvane::defaultFormatMarkers());
}

Result run(std::istream& input, const PropertySet& scheme, Norvane::UpdateFunctor& update,
           const Trn::MessageList& earlier = {}) {
    Result result;
    result.messages = earlier;
    std::ostringstream output;
    result.count = FormatDriver().format(optionsOf(scheme), input, output, result.messages, update);
    result.output = output.str();
    result.outputGood = output.good();
    return result;
}

Result run(const std::string& source, const PropertySet& scheme = PropertySet()) {
    std::istringstream input(source);
    Norvane::UpdateFunctor update;
    return run(input, scheme, update);
}

PropertySet wrapping() {
    PropertySet scheme;
    scheme.setBool("LINE_WRAP", true);
    scheme.setInt("RIGHT_MARGIN", 78);
    return scheme;
}

std::vector<int> codesOf(const std::string& source) {
    std::istringstream in(source);
    Cpp::Lexer lexer(in);
    Cpp::Parser parser;
    Cpp::RootNode root;
    Trn::MessageList messages;
    parser.parse(lexer, root, messages);
    std::vector<int> codes;
    for (const Trn::Message& message : messages) codes.push_back(message.code);
    return codes;
}

const std::string kPlain = "int  a ;\n\n  void f( ) { return ; }\n";
const std::string kUnclosed = "void f() {\n  a();\n";
const std::string kWithdrawn = "DECLARE_IT(x)\nvoid g();\n";

TEST(FormatDriver, AnEmptySchemeGivesTheTextBack) {
    const Result result = run(kPlain);
    EXPECT_EQ(result.count, 0);
    EXPECT_EQ(result.output, kPlain);
    EXPECT_TRUE(result.messages.empty());
}

TEST(FormatDriver, FormatsByTheScheme) {
    PropertySet scheme;
    scheme.setString("WS_BEFORE_FN_OPEN_BRACE", "\n");
    EXPECT_EQ(run("void f() { }\n", scheme).output, "void f()\n{ }\n");
}

TEST(FormatDriver, EmptyInputIsEmptyOutput) {
    for (const PropertySet& scheme : {PropertySet(), wrapping()}) {
        std::istringstream input("");
        CountedUpdate update(2);
        const Result result = run(input, scheme, update);
        EXPECT_EQ(result.count, 0);
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.outputGood);
        EXPECT_TRUE(result.messages.empty());
        EXPECT_EQ(update.texts().size(), 2U);
    }
}

TEST(FormatDriver, TellsWhatItIsAboutToDo) {
    for (const PropertySet& scheme : {PropertySet(), wrapping()}) {
        std::istringstream input(kPlain);
        CountedUpdate update(2);
        EXPECT_EQ(run(input, scheme, update).count, 0);
        EXPECT_EQ(update.texts(), (std::vector<std::string>{"Analyzing file:\n%s", "Formatting file:\n%s"}));
    }
}

TEST(FormatDriver, ACancelEndsTheRunWithOneMessage) {
    // Even of a text that would not parse the first cancel leaves nothing but its own message.
    const struct {
        std::size_t goOn;
        const std::string& source;
    } rows[] = {{0, kUnclosed}, {0, kPlain}, {1, kPlain}};
    for (const auto& row : rows) {
        std::istringstream input(row.source);
        CountedUpdate update(row.goOn);
        const Result result = run(input, PropertySet(), update);
        EXPECT_EQ(result.count, 1);
        EXPECT_EQ(result.output, "");
        ASSERT_EQ(result.messages.size(), 1U);
        EXPECT_EQ(result.messages.front().severity, Trn::kSeverityInformation);
        EXPECT_TRUE(result.messages.front().position.isNone());
        EXPECT_EQ(result.messages.front().code, 0);
        EXPECT_EQ(result.messages.front().text, "Formatting cancelled at user's request.");
        EXPECT_EQ(update.texts().size(), row.goOn + 1);
    }
}

TEST(FormatDriver, WithdrawnDiagnosticsDoNotCount) {
    const std::vector<int> codes = codesOf(kWithdrawn);
    ASSERT_FALSE(codes.empty());
    for (const int code : codes) ASSERT_EQ(code, 2);
    for (const PropertySet& scheme : {PropertySet(), wrapping()}) {
        const Result result = run(kWithdrawn, scheme);
        EXPECT_EQ(result.count, 0);
        EXPECT_EQ(result.output, kWithdrawn);
        EXPECT_TRUE(result.messages.empty());
    }
}

TEST(FormatDriver, AFailedParseReturnsTheDiagnosticsThatAreLeft) {
    const std::string source = kWithdrawn + kUnclosed;
    std::size_t left = 0;
    const std::vector<int> codes = codesOf(source);
    for (const int code : codes) left += code != 2 ? 1U : 0U;
    ASSERT_GT(left, 0U);
    ASSERT_GT(codes.size(), left);
    const Result result = run(source);
    EXPECT_EQ(result.count, static_cast<std::int32_t>(left));
    EXPECT_EQ(result.messages.size(), left);
    EXPECT_EQ(result.output, "");
}

TEST(FormatDriver, MessagesAreAppendedInOrder) {
    const Trn::Message earlier{Trn::kSeverityWarning, {3, 4}, 2, "mine"};
    Norvane::UpdateFunctor update;
    std::istringstream good(kWithdrawn);
    const Result untouched = run(good, PropertySet(), update, {earlier});
    ASSERT_EQ(untouched.messages.size(), 1U);
    std::istringstream bad(kUnclosed);
    const Result result = run(bad, PropertySet(), update, {earlier});
    ASSERT_EQ(result.messages.size(), 1U + static_cast<std::size_t>(result.count));
    EXPECT_EQ(result.messages.front().text, "mine");
    EXPECT_EQ(result.messages.back().code, codesOf(kUnclosed).back());
}

TEST(FormatDriver, MarkedRegionsPassBothParsesUnchanged) {
    const std::string region = "// KL-FORMAT-OFF\nint   a  [ ]=   { 1,2,\n      3 } ;\n// KL-FORMAT-ON\n";
    PropertySet scheme = wrapping();
    scheme.setString("WS_AFTER_DD_TYPE_ID", " ");
    scheme.setString("WS_BETWEEN_DD_ELEMENTS", " ");
    scheme.setInt("RIGHT_MARGIN", 10);
    const Result result = run("int   b;\n" + region + "int   c;\n", scheme);
    EXPECT_EQ(result.count, 0);
    EXPECT_EQ(result.output, "int b;\n" + region + "int c;\n");
}

TEST(FormatDriver, WrappingNeedsTheOptionAsABool) {
    const std::string source = "void f() { aaaaaaaaaaaa(bbbbbbbbbbbbbbb, cccccccccccccccc); }\n";
    PropertySet scheme;
    scheme.setInt("RIGHT_MARGIN", 20);
    scheme.setInt("LINE_WRAP", 1);
    EXPECT_EQ(run(source, scheme).output, source);
    scheme.setBool("LINE_WRAP", false);
    EXPECT_EQ(run(source, scheme).output, source);
}

/// Hands its text out in small pieces and cannot seek, as a pipe.
class PipeBuffer : public std::streambuf {
public:
    explicit PipeBuffer(std::string text) : text_(std::move(text)) {}

protected:
    int_type underflow() override {
        if (at_ == text_.size()) return traits_type::eof();
        piece_ = text_[at_++];
        setg(&piece_, &piece_, &piece_ + 1);
        return traits_type::to_int_type(piece_);
    }

private:
    std::string text_;
    std::size_t at_ = 0;
    char piece_ = 0;
};

TEST(FormatDriver, InputNeedNotBeSeekable) {
    for (const PropertySet& scheme : {PropertySet(), wrapping()}) {
        PipeBuffer pipe(kPlain + "// \xff\xfe\n");
        std::istream input(&pipe);
        Norvane::UpdateFunctor update;
        EXPECT_EQ(run(input, scheme, update).output, kPlain + "// \xff\xfe\n");
    }
}

TEST(FormatDriver, TakesWhatIsLeftOfTheInputAndAppendsToTheOutput) {
    std::istringstream input("skipped\nint a;\n");
    std::string line;
    std::getline(input, line);
    std::ostringstream output;
    output << "before\n";
    Trn::MessageList messages;
    Norvane::UpdateFunctor update;
    EXPECT_EQ(FormatDriver().format(optionsOf({}), input, output, messages, update), 0);
    EXPECT_EQ(output.str(), "before\nint a;\n");
}

TEST(FormatDriver, CanBeUsedAgainAfterAFailure) {
    FormatDriver driver;
    Norvane::UpdateFunctor update;
    for (const bool good : {false, true, false, true}) {
        std::istringstream input(good ? kPlain : kUnclosed);
        std::ostringstream output;
        Trn::MessageList messages;
        EXPECT_EQ(driver.format(optionsOf(wrapping()), input, output, messages, update) == 0, good);
        EXPECT_EQ(output.str(), good ? kPlain : "");
        EXPECT_EQ(messages.empty(), good);
    }
}

TEST(FormatDriver, ExceptionsPassThroughAndLeaveTheOutputAlone) {
    std::istringstream input(kPlain);
    std::ostringstream output;
    Trn::MessageList messages;
    ThrowingUpdate update;
    EXPECT_THROW(FormatDriver().format(optionsOf({}), input, output, messages, update), std::runtime_error);
    EXPECT_EQ(output.str(), "");
    EXPECT_TRUE(messages.empty());
}

TEST(FormatDriver, AMeaninglessConversionLosesNothing) {
    for (const int mode : {-1, 3, 1000}) {
        PropertySet scheme;
        scheme.setInt("CONVERT_WS", mode);
        EXPECT_EQ(run(kPlain, scheme).output, kPlain) << mode;
    }
}

TEST(FormatOptions, HoldsCopies) {
    PropertySet scheme("mine");
    scheme.setInt("TAB_SIZE", 4);
    Norvane::FormatMarkerTable markers{{"OFF", "ON"}};
    const FormatOptions options(scheme, markers);
    scheme.setInt("TAB_SIZE", 8);
    markers.clear();
    std::int32_t tabSize = 0;
    EXPECT_TRUE(options.getInt("TAB_SIZE", tabSize));
    EXPECT_EQ(tabSize, 4);
    EXPECT_EQ(options.getName(), "mine");
    ASSERT_EQ(options.markers().size(), 1U);
    EXPECT_EQ(options.markers().front().second, "ON");
}

} // namespace
