#ifndef KERFLINE_CPP_PARSEDTEXT_H
#define KERFLINE_CPP_PARSEDTEXT_H

#include "cpp/Cpp_NodePool.h"
#include "cpp/Cpp_TokenTable.h"
#include "streams/Zelmar_SourceText.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Cpp {

/// What a tree lives on: the text, its tokens, and the memory of the nodes.
class ParsedText {
public:
    ParsedText(std::shared_ptr<const Zelmar::SourceText> source, std::vector<ParseToken> tokens)
        : source_(std::move(source)), tokens_(*source_, std::move(tokens)), pool_(source_->size() / 2) {}

    const Zelmar::SourceText& source() const { return *source_; }
    const TokenTable& tokens() const { return tokens_; }
    NodePool& pool() { return pool_; }

private:
    std::shared_ptr<const Zelmar::SourceText> source_;
    TokenTable tokens_;
    NodePool pool_;
};

} // namespace Cpp

#endif
