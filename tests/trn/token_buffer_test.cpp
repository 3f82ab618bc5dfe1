#include "trn/Trn_TokenBuffer.h"

#include "trn/Trn_Lexer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <ostream>
#include <sstream>

namespace {

using Trn::Token;
using Trn::TokenBuffer;

/// Hands out tokens of type 1 to `count`, in order, and then the end for ever.
class CountingLexer : public Trn::Lexer {
public:
    explicit CountingLexer(int count) : Lexer(unused()), count_(count) {}
    Token nextToken() override {
        ++taken_;
        return taken_ <= count_ ? Token(taken_, {1, 1}, {1, 1}) : Token();
    }
    std::ostream& print(std::ostream& out) const override { return out << taken_; }
    int taken() const { return taken_; }

private:
    static std::istream& unused() {
        static std::istringstream stream;
        return stream;
    }

    int count_;
    int taken_ = 0;
};

Token tokenOf(std::int32_t type) { return Token(type, {1, 1}, {1, 1}); }

std::deque<Token> tokens(int count) {
    std::deque<Token> result;
    for (int i = 1; i <= count; ++i) result.push_back(tokenOf(i));
    return result;
}

void skip(TokenBuffer& buffer, int count) {
    for (int i = 0; i < count; ++i) buffer.next();
}

TEST(TokenBuffer, HandsOutTheTokensOfALexerInOrder) {
    CountingLexer lexer(30);
    TokenBuffer buffer(&lexer);
    for (int i = 1; i <= 30; ++i) EXPECT_EQ(buffer.next().type(), i);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(buffer.next().type(), -1);
}

TEST(TokenBuffer, ReadsTheLexerNoFurtherThanItsWindow) {
    CountingLexer lexer(30);
    TokenBuffer buffer(&lexer);
    buffer.next();
    EXPECT_EQ(lexer.taken(), 7);
}

TEST(TokenBuffer, WithNeitherLexerNorTokensIsDryForEver) {
    TokenBuffer buffer;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(buffer.peek(1).type(), -1);
        EXPECT_EQ(buffer.next().type(), -1);
        buffer.stepBack();
        buffer.putBack(tokenOf(5));
    }
}

// Wherever the read point stands in its window, a look-ahead of any length changes nothing.
TEST(TokenBuffer, PeekNeverLosesATokenWhereverItStarts) {
    for (int consumed = 0; consumed <= 16; ++consumed) {
        for (std::size_t distance = 1; distance <= 20; ++distance) {
            SCOPED_TRACE(testing::Message() << consumed << " consumed, peek " << distance);
            CountingLexer lexer(40);
            TokenBuffer buffer(&lexer);
            skip(buffer, consumed);
            EXPECT_EQ(buffer.peek(distance).type(), consumed + static_cast<int>(distance));
            EXPECT_EQ(buffer.peek(1).type(), consumed + 1);
            for (int i = consumed + 1; i <= 40; ++i) ASSERT_EQ(buffer.next().type(), i);
        }
    }
}

TEST(TokenBuffer, PeekKeepsWhatCanBeSteppedBackTo) {
    CountingLexer lexer(40);
    TokenBuffer buffer(&lexer);
    skip(buffer, 7);
    buffer.peek(1);
    for (int i = 0; i < 7; ++i) buffer.stepBack();
    EXPECT_EQ(buffer.next().type(), 1);
}

TEST(TokenBuffer, RefillKeepsTwoTokensToStepBackTo) {
    CountingLexer lexer(40);
    TokenBuffer buffer(&lexer);
    skip(buffer, 8); // the eighth is the first behind a refill
    buffer.stepBack();
    buffer.stepBack();
    buffer.stepBack();
    EXPECT_EQ(buffer.next().type(), 6);
    EXPECT_EQ(buffer.next().type(), 7);
    EXPECT_EQ(buffer.next().type(), 8);
}

TEST(TokenBuffer, StepBackAtTheStartDoesNothing) {
    CountingLexer lexer(3);
    TokenBuffer buffer(&lexer);
    buffer.stepBack();
    EXPECT_EQ(buffer.next().type(), 1);
}

TEST(TokenBuffer, PutBackAtTheStartIsLostWithoutAnError) {
    CountingLexer lexer(3);
    TokenBuffer buffer(&lexer);
    buffer.peek(1);
    EXPECT_NO_THROW(buffer.putBack(tokenOf(99)));
    EXPECT_EQ(buffer.next().type(), 1);
}

TEST(TokenBuffer, PutBackReplacesTheTokenBefore) {
    TokenBuffer buffer(tokens(3));
    skip(buffer, 2);
    buffer.putBack(tokenOf(99));
    EXPECT_EQ(buffer.next().type(), 99);
    EXPECT_EQ(buffer.next().type(), 3);
}

TEST(TokenBuffer, AfterItsLexerEndedItStepsBackOverRealEnds) {
    CountingLexer lexer(2);
    TokenBuffer buffer(&lexer);
    skip(buffer, 3);
    buffer.stepBack();
    buffer.stepBack();
    EXPECT_EQ(buffer.next().type(), 2);
}

TEST(TokenBuffer, StandAloneListMayBeLongerThanTheWindow) {
    TokenBuffer buffer(tokens(50));
    EXPECT_EQ(buffer.peek(50).type(), 50);
    EXPECT_EQ(buffer.peek(51).type(), -1);
    for (int i = 1; i <= 50; ++i) ASSERT_EQ(buffer.next().type(), i);
    EXPECT_EQ(buffer.next().type(), -1);
}

// Out of tokens there is no token to step back over, so one step leads to the last real one.
TEST(TokenBuffer, DryListStepsBackToItsLastToken) {
    TokenBuffer buffer(tokens(3));
    skip(buffer, 4);
    buffer.stepBack();
    EXPECT_EQ(buffer.next().type(), 3);
}

TEST(TokenBuffer, PutBackIntoADryListReplacesItsLastToken) {
    TokenBuffer buffer(tokens(3));
    skip(buffer, 4);
    buffer.putBack(tokenOf(99));
    EXPECT_EQ(buffer.next().type(), 99);
    EXPECT_EQ(buffer.next().type(), -1);
}

TEST(TokenBuffer, CopyStartsOverAndNeverTouchesTheLexer) {
    CountingLexer lexer(40);
    TokenBuffer buffer(&lexer);
    skip(buffer, 3);
    TokenBuffer copy(buffer);
    for (int i = 1; i <= 7; ++i) EXPECT_EQ(copy.next().type(), i);
    EXPECT_EQ(copy.next().type(), -1);
    EXPECT_EQ(buffer.next().type(), 4);
}

} // namespace
