#ifndef KERFLINE_NORVANE_FORMATDRIVER_H
#define KERFLINE_NORVANE_FORMATDRIVER_H

#include "cpp/Cpp_Parser.h"
#include "src/Norvane_UpdateFunctor.h"
#include "src/scheme/Norvane_FormatOptions.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Message.h"

#include <cstdint>
#include <istream>
#include <memory>
#include <ostream>
#include <string>

namespace Norvane {

/// Takes one text through every stage of formatting.
///
///     source -> parse -> regions left alone -> format -> (parse -> regions -> wrap) -> output
///
/// The part in parentheses runs with LINE_WRAP on. Each parse has a tree of its own, and only one
/// is alive at a time. It holds nothing between two runs.
class FormatDriver {
public:
    /// By default a text in which something cannot be read is not formatted.
    using Unreadable = Cpp::Parser::Unreadable;

    explicit FormatDriver(Unreadable unreadable = Unreadable::Report) : unreadable_(unreadable) {}

    /// Formats what is left of `input`, which need not be seekable, and writes the result to
    /// `output`. Returns 0 if that is done; `messages` is untouched then. Otherwise nothing was
    /// written, and the result is the number of messages that were appended to `messages`: those of
    /// a text that does not parse, with places in the source or, behind the first pass, in the
    /// formatted text; or a single one that says why the run ended.
    ///
    /// With Unreadable::LeaveAlone every text parses: what cannot be read is copied as it stands, and
    /// what was said of it is appended to `messages` as warnings, with places in the source.
    ///
    /// `update` is asked before each of the two long stages. What a stage throws passes through,
    /// and nothing has been written then either.
    std::int32_t format(const FormatOptions& options, std::istream& input, std::ostream& output,
                        Trn::MessageList& messages, UpdateFunctor& update);
    /// The same for a text at hand, which has line feeds only. `result` is replaced, and stays as it
    /// was unless 0 is returned.
    std::int32_t format(const FormatOptions& options, std::shared_ptr<const Zelmar::SourceText> text,
                        std::string& result, Trn::MessageList& messages, UpdateFunctor& update);

private:
    Unreadable unreadable_;
};

} // namespace Norvane

#endif
