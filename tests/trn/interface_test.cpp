#include "trn/Trn_Exception.h"
#include "trn/Trn_Lexer.h"
#include "trn/Trn_Parser.h"
#include "trn/Trn_SyntaxNode.h"
#include "trn/Trn_TokenBuffer.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>

// What other languages and passes are written against: that it compiles in these shapes is the test.
namespace {

class OneTokenLexer : public Trn::Lexer {
public:
    using Trn::Lexer::Lexer;
    Trn::Token nextToken() override { return Trn::Token(7, Trn::Position{1, 1}, Trn::Position{1, 2}, "ab"); }
    std::ostream& print(std::ostream& out) const override { return out << "at the start"; }
};

class Leaf : public Trn::SyntaxNode {
public:
    void setStart(const Trn::Position& position) override { start_ = position; }
    Trn::Position start() const override { return start_; }
    void setEnd(const Trn::Position& position) override { end_ = position; }
    Trn::Position end() const override { return end_; }

private:
    Trn::Position start_;
    Trn::Position end_;
};

class FirstTokenParser : public Trn::Parser {
public:
    void parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::MessageList& messages) override {
        const Trn::Token token = lexer.nextToken();
        root.setStart(token.start());
        root.setEnd(token.end());
        messages.push_back({Trn::kSeverityWarning, token.start(), 5, token.text()});
    }
};

static_assert(std::is_abstract_v<Trn::Lexer> && std::is_abstract_v<Trn::Parser> && std::is_abstract_v<Trn::SyntaxNode>);
static_assert(std::is_same_v<decltype(Trn::Position::line), std::uint32_t>);
static_assert(sizeof(decltype(Trn::Message::severity)) == 4 && std::is_signed_v<decltype(Trn::Message::code)>);

TEST(TrnInterface, ServesAnotherLanguage) {
    std::istringstream in;
    OneTokenLexer lexer(in);
    Leaf root;
    Trn::MessageList messages;
    FirstTokenParser().parse(lexer, root, messages);
    EXPECT_EQ(root.end(), (Trn::Position{1, 2}));
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages.front().text, "ab");
    std::ostringstream out;
    EXPECT_EQ(&lexer.print(out), &out);
}

TEST(TrnInterface, BufferReadsAnyLexer) {
    std::istringstream in;
    OneTokenLexer lexer(in);
    Trn::TokenBuffer buffer(&lexer);
    const Trn::Token first = buffer.next();
    buffer.putBack(first);
    buffer.next();
    buffer.stepBack();
    EXPECT_EQ(buffer.peek(1), first);
}

// One handler for the base takes them all, also those that derive virtually.
TEST(TrnInterface, ExceptionsAreCaughtByTheirBase) {
    const auto messageOf = [](auto thrown) {
        try {
            throw thrown;
        } catch (const Trn::Exception& e) {
            return e.message();
        }
    };
    EXPECT_EQ(messageOf(Trn::Exception("text")), "text");
    EXPECT_EQ(messageOf(Trn::InvalidValueType()), "Invalid value() function called for Token object.");
    EXPECT_EQ(messageOf(Trn::AlreadyExistsException()),
              "Attempt to add an object to a collection that already exists in that collection.");
    EXPECT_EQ(messageOf(Trn::InvalidParameterException()), "InvalidParameterExecption");
}

} // namespace
