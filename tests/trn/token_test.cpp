#include "trn/Trn_Token.h"

#include "trn/Trn_Exception.h"
#include "trn/Trn_Message.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace {

using Trn::Position;
using Trn::Token;

const Position kStart{3, 4};
const Position kEnd{3, 6};

template <class Value> void read(const Token& token) {
    Value value{};
    token.value(value);
}

std::string messageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Trn::Exception& exception) {
        return exception.message();
    }
    return "no exception";
}

TEST(Position, OnlyBothZeroIsNoPlace) {
    EXPECT_TRUE(Position().isNone());
    EXPECT_FALSE((Position{2, 0}.isNone())); // the line feed that ends line 1
}

TEST(Position, LineFeedLiesBetweenItsLineAndTheNext) {
    EXPECT_LT((Position{1, 80}), (Position{2, 0}));
    EXPECT_LT((Position{2, 0}), (Position{2, 1}));
}

TEST(Token, DefaultIsNoToken) {
    const Token token;
    EXPECT_EQ(token.type(), -1);
    EXPECT_TRUE(token.start().isNone());
    EXPECT_TRUE(token.end().isNone());
}

// The numbers of the value kinds are part of the interface.
TEST(Token, EachConstructorSetsItsKindOfValue) {
    EXPECT_EQ(Token(1, kStart, kEnd).valueType(), 0);
    EXPECT_EQ(Token(1, kStart, kEnd, "abc").valueType(), 0);
    EXPECT_EQ(Token(1, kStart, kEnd, "abc", 'a').valueType(), 1);
    EXPECT_EQ(Token(1, kStart, kEnd, "abc", 5).valueType(), 5);
    EXPECT_EQ(Token(1, kStart, kEnd, "abc", 5L).valueType(), 7);
    EXPECT_EQ(Token(1, kStart, kEnd, "abc", std::string("x")).valueType(), 9);
}

TEST(Token, HandsOutTheValueItWasGiven) {
    int number = 0;
    Token(1, kStart, kEnd, "-7", -7).value(number);
    EXPECT_EQ(number, -7);
    long wide = 0;
    Token(1, kStart, kEnd, "-8", -8L).value(wide);
    EXPECT_EQ(wide, -8L);
    char letter = 0;
    Token(1, kStart, kEnd, "'\\xff'", '\xff').value(letter);
    EXPECT_EQ(letter, '\xff');
    std::string text;
    Token(1, kStart, kEnd, "\"t\"", std::string("t")).value(text);
    EXPECT_EQ(text, "t");
}

TEST(Token, RefusesEveryOtherKindOfValue) {
    const Token token(1, kStart, kEnd, "5", 5);
    const std::string refusal = "Invalid value() function called for Token object.";
    EXPECT_EQ(messageOf([&] { read<char>(token); }), refusal);
    EXPECT_EQ(messageOf([&] { read<short>(token); }), refusal);
    EXPECT_EQ(messageOf([&] { read<unsigned short>(token); }), refusal);
    EXPECT_EQ(messageOf([&] { read<unsigned int>(token); }), refusal);
    EXPECT_EQ(messageOf([&] { read<long>(token); }), refusal);
    EXPECT_EQ(messageOf([&] { read<unsigned long>(token); }), refusal);
    EXPECT_EQ(messageOf([&] { read<std::string>(token); }), refusal);
    EXPECT_EQ(messageOf([&] { read<int>(token); }), "no exception");
}

TEST(Token, CopyOwnsItsOwnString) {
    Token copy;
    {
        const Token original(9, kStart, kEnd, "\"t\"", std::string(100, 't'));
        copy = original;
        EXPECT_EQ(copy, original);
    }
    std::string value;
    copy.value(value);
    EXPECT_EQ(value, std::string(100, 't'));
}

TEST(Token, SelfAssignmentKeepsTheValue) {
    Token token(9, kStart, kEnd, "\"t\"", std::string("t"));
    const Token& same = token;
    token = same;
    std::string value;
    token.value(value);
    EXPECT_EQ(value, "t");
}

TEST(Token, ComparesEveryFieldAndStringValues) {
    const Token token(9, kStart, kEnd, "\"t\"", std::string("t"));
    EXPECT_EQ(token, Token(9, kStart, kEnd, "\"t\"", std::string("t")));
    EXPECT_NE(token, Token(8, kStart, kEnd, "\"t\"", std::string("t")));
    EXPECT_NE(token, Token(9, kEnd, kEnd, "\"t\"", std::string("t")));
    EXPECT_NE(token, Token(9, kStart, kStart, "\"t\"", std::string("t")));
    EXPECT_NE(token, Token(9, kStart, kEnd, "\"u\"", std::string("t")));
    EXPECT_NE(token, Token(9, kStart, kEnd, "\"t\""));
    EXPECT_NE(token, Token(9, kStart, kEnd, "\"t\"", std::string("u")));
}

TEST(Token, ScalarValuesAreNotCompared) {
    EXPECT_EQ(Token(3, kStart, kEnd, "5", 5), Token(3, kStart, kEnd, "5", 6));
    EXPECT_EQ(Token(3, kStart, kEnd, "5", 5L), Token(3, kStart, kEnd, "5", 6L));
    EXPECT_EQ(Token(3, kStart, kEnd, "a", 'a'), Token(3, kStart, kEnd, "a", 'b'));
}

// Callers print and compare these texts.
TEST(Exceptions, CarryTheirFixedTexts) {
    EXPECT_EQ(Trn::InvalidValueType().message(), "Invalid value() function called for Token object.");
    EXPECT_EQ(Trn::AlreadyExistsException().message(),
              "Attempt to add an object to a collection that already exists in that collection.");
    EXPECT_EQ(Trn::InvalidParameterException().message(), "InvalidParameterExecption");
}

TEST(Exceptions, KeepTheirTextWhenCopiedAsTheBase) {
    const Trn::AlreadyExistsException thrown;
    const Trn::Exception copy(thrown);
    EXPECT_EQ(copy.message(), thrown.message());
}

} // namespace
