#ifndef KERFLINE_ADDIN_MESSAGES_H
#define KERFLINE_ADDIN_MESSAGES_H

#include "addin/Addin_Host.h"
#include "trn/Trn_Message.h"

#include <cstdint>
#include <string>

namespace Addin {

/// True if a message of `severity` is shown under `threshold`. A severity that is none counts as
/// information.
bool passesThreshold(std::uint32_t severity, int threshold);

/// The text for a window of messages. A diagnostic has the form of a compiler's error line, which
/// editors can jump to.
///     a.cpp(3) : error: col 7: Unexpected token.
std::string shownText(const Message& message);

/// The one way for messages to the user.
class Messages {
public:
    /// Neither is owned; a threshold that changes counts at once.
    Messages(Host& host, const AddInOptions& options) : host_(host), options_(options) {}

    /// Goes to the messages window if there is one and the threshold lets it pass.
    void send(const Message& message);
    /// As an error in the messages window and as a notice. `path` is the file that it is about.
    void sendAndShow(const std::string& text, const std::string& path = {});

private:
    Host& host_;
    const AddInOptions& options_;
};

/// What to tell of the exception that is being handled. Requires: there is one.
std::string currentExceptionText();

} // namespace Addin

#endif
