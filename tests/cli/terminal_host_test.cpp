#include "cli/run/Cli_TerminalHost.h"

#include "addin/Addin_Messages.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Cli::Verbosity;

class Host : public testing::Test {
protected:
    std::string messagesAt(Verbosity verbosity, Cli::MessageFormat format = Cli::MessageFormat::gnu) {
        Cli::Report report({format, false});
        Cli::TerminalHost host(streams, report, verbosity, false);
        const Addin::AddInOptions options;
        Addin::Messages messages(host, options);
        messages.send({1, "Formatting \"a.c\".", "a.c"});
        messages.send({3, "Unexpected token.", "a.c", {3, 7}, 1});
        messages.send({2, "careful", "a.c"});
        messages.sendAndShow("broken", "a.c");
        std::ostringstream shown;
        report.flush(shown);
        return shown.str();
    }

    std::istringstream in{"y\n"};
    std::ostringstream out;
    std::ostringstream err;
    Cli::Streams streams = {in, out, err};
};

TEST_F(Host, ShowsMessagesAsMuchAsWanted) {
    EXPECT_EQ(messagesAt(Verbosity::normal),
              "a.c:3:7: error: Unexpected token.\na.c: warning: careful\na.c: error: broken\n");
    EXPECT_EQ(messagesAt(Verbosity::quiet), "a.c:3:7: error: Unexpected token.\na.c: error: broken\n");
    EXPECT_EQ(messagesAt(Verbosity::verbose).rfind("a.c: note: Formatting \"a.c\".\n", 0), 0u);
}

TEST_F(Host, ShowsMessagesInTheFormThatIsWanted) {
    EXPECT_EQ(messagesAt(Verbosity::quiet, Cli::MessageFormat::msvc),
              "a.c(3) : error: col 7: Unexpected token.\na.c : error: broken\n");
    EXPECT_EQ(messagesAt(Verbosity::quiet, Cli::MessageFormat::json),
              "{\"path\":\"a.c\",\"line\":3,\"column\":7,\"severity\":\"error\",\"text\":\"Unexpected token.\"}\n"
              "{\"path\":\"a.c\",\"severity\":\"error\",\"text\":\"broken\"}\n");
}

TEST_F(Host, CancelsWhereNobodyCanBeAsked) {
    Cli::Report report;
    Cli::TerminalHost host(streams, report, Verbosity::normal, false);
    EXPECT_EQ(host.ask("Sure?", Addin::Occasion::command), Addin::Answer::cancel);
    EXPECT_EQ(err.str(), "");
    Cli::TerminalHost sure(streams, report, Verbosity::normal, true);
    EXPECT_EQ(sure.ask("Sure?", Addin::Occasion::command), Addin::Answer::yes);
}

TEST(Message, OfBytesThatAreNoTextIsStillJson) {
    EXPECT_EQ(Cli::messageLine({"\xff.c", 1, 2}, "error", "a\"b\n", {Cli::MessageFormat::json, false}),
              "{\"path\":\"\xef\xbf\xbd.c\",\"line\":1,\"column\":2,\"severity\":\"error\",\"text\":\"a\\\"b\\n\"}");
}

} // namespace
