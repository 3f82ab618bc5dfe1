#ifndef KERFLINE_TESTS_GOLDENENGINE_H
#define KERFLINE_TESTS_GOLDENENGINE_H

#include "src/Norvane_FormatDriver.h"
#include "src/scheme/Norvane_FormatOptions.h"
#include "trn/Trn_Message.h"

#include <optional>
#include <string>

namespace Golden {

/// What came of one text: the messages say why there is no result.
struct Outcome {
    std::optional<std::string> text;
    Trn::MessageList messages;
};

/// The format engine with one scheme, for any number of texts in line feeds.
class Engine {
public:
    using Unreadable = Norvane::FormatDriver::Unreadable;

    /// Only with Unreadable::LeaveAlone may there be messages beside a text.
    explicit Engine(const Norvane::PropertySet& scheme, Unreadable unreadable = Unreadable::Report);

    Outcome format(const std::string& text) const;

private:
    Norvane::FormatOptions options_;
    Unreadable unreadable_;
};

} // namespace Golden

#endif
