#ifndef KERFLINE_TRN_MESSAGE_H
#define KERFLINE_TRN_MESSAGE_H

#include "trn/Trn_Position.h"

#include <cstdint>
#include <list>
#include <string>

namespace Trn {

/// The defined values of Message::severity.
inline constexpr std::uint32_t kSeverityInformation = 1;
inline constexpr std::uint32_t kSeverityWarning = 2;
inline constexpr std::uint32_t kSeverityError = 3;

/// One diagnostic about a text.
struct Message {
    std::uint32_t severity = kSeverityInformation;
    /// The place it refers to, or no place.
    Position position;
    /// Number of a parser diagnostic; 0 for a message that has only a text.
    std::int32_t code = 0;
    std::string text;
};

/// Messages in the order of their creation. Whole lists are moved by splicing.
using MessageList = std::list<Message>;

} // namespace Trn

#endif
