#ifndef KERFLINE_CPP_PARSER_H
#define KERFLINE_CPP_PARSER_H

#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Lexer.h"
#include "trn/Trn_Message.h"
#include "trn/Trn_Parser.h"
#include "trn/Trn_SyntaxNode.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Cpp {

class RootNode;

/// Builds the coarse tree of a C or C++ text: a tolerant parser with no symbol table and no
/// preprocessor. It never sees the definition of a macro or a type, and tells declarations,
/// statements and classes apart by looking ahead.
///
/// It reports what it cannot place, severity 3 throughout, and goes on behind it. Where a text does
/// not parse because the branches of a conditional directive each hold a part of a construct, such
/// as two heads for one body, it is parsed once more with one branch seen and the other kept as it
/// stands. The messages are then those of the first attempt, or none if the second one succeeds.
///
/// With Unreadable::LeaveAlone the tree always is one that can be laid out: the smallest statement or
/// declaration around each fault is a verbatim CommentNode, in a list of statements or declarations. The
/// same messages say so, with severity 2, in the order of the text. Declarations of Objective-C are such
/// stretches from the start.
///
/// The nodes live on what their root holds, see RootNode::parsed.
class Parser : public Trn::Parser {
public:
    /// What becomes of a text in which something cannot be read.
    enum class Unreadable { Report, LeaveAlone };

    explicit Parser(Unreadable unreadable = Unreadable::Report) : unreadable_(unreadable) {}

    /// `lexer` must be a Cpp::Lexer and `root` a Cpp::RootNode; anything else throws
    /// Trn::InvalidParameterException. `root` is replaced, `messages` is appended to.
    void parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::MessageList& messages) override;
    /// The same for a text at hand, which the tree keeps as long as it needs it.
    void parse(std::shared_ptr<const Zelmar::SourceText> source, RootNode& root, Trn::MessageList& messages);

    /// The code of the one diagnostic that is a note and no failure.
    static constexpr std::int32_t kNoteCode = 2;
    /// The code of an end that was not expected.
    static constexpr std::int32_t kEndCode = 1;

    /// The text of a numbered diagnostic.
    static std::string messageText(std::int32_t code);

private:
    Unreadable unreadable_;
};

} // namespace Cpp

#endif
