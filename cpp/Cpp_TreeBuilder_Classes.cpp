#include "cpp/Cpp_TreeBuilder.h"

#include <utility>

namespace Cpp {

using Index = TreeBuilder::Index;

namespace {

/// What a base class is named with, besides the groups of its arguments.
bool isBaseName(int type) {
    return type == tkIdentifier || type == tkTypename || type == tkTemplate || type == tkDot || type == tkLess ||
           type == tkGreater || type == tkShiftRight || type == tkNumber || type == tkStruct || type == tkClass;
}

} // namespace

TreeBuilder::NodePtr TreeBuilder::parseClassDecl(Index first, Index brace) {
    if (tooDeep(brace) || isUnclosed(brace)) return nullptr;
    const Depth depth(*this);
    Ptr<ClassHeadNode> head = parseClassHead(sig(first), brace);
    auto body = make<ClassBodyNode>();
    body->setStart(t_.start(brace));
    at_ = brace + 1;
    if (!parseBody(*body, Body::Class)) return nullptr;
    body->setEnd(t_.end(at_));
    ++at_;
    auto node = make<ClassDeclNode>(head.release(), body.release());
    endAtSemicolon(*node);
    return node;
}

/// From a token of a class head to the last one of the group that it opens, or to itself.
TreeBuilder::Index TreeBuilder::skipGroup(Index i) const {
    const bool opens = type(i) == tkLess || type(i) == tkOpenParen || isAttribute(i);
    return opens && t_.mate(i) != kNone ? t_.mate(i) : i;
}

TreeBuilder::Ptr<ClassHeadNode> TreeBuilder::parseClassHead(Index first, Index brace) {
    int key = 0;
    std::string name;
    Index last = first;
    Index j = first;
    for (; j < brace && type(j) != tkColon; j = nextSig(j)) {
        const bool isKey = type(j) == tkClass || type(j) == tkStruct || type(j) == tkUnion;
        const Index end = skipGroup(j);
        if (isKey) key = type(j);
        else (name += name.empty() ? "" : " ") += t_.joined(j, end + 1);
        last = j = end;
    }
    auto nameNode = make<ClassNameNode>(key, pool_.keep(name), t_.start(first), t_.end(last));
    Ptr<BaseClauseListNode> bases;
    if (j < brace) bases = parseBaseClauses(nextSig(j), brace);
    return make<ClassHeadNode>(nameNode.release(), bases.release());
}

TreeBuilder::Ptr<BaseClauseListNode> TreeBuilder::parseBaseClauses(Index first, Index last) {
    auto list = make<BaseClauseListNode>();
    bool compares = false;
    for (Index j = first; j < last; j = nextSig(j)) compares = compares || (type(j) == tkLess && t_.mate(j) == kNone);
    for (Index j = first; j < last;) {
        Index comma = firstComma(j, last);
        if (comma == kNone) comma = last;
        if (j < comma) list->append(parseBaseClause(j, comma, compares));
        j = comma < last ? nextSig(comma) : last;
    }
    return list->empty() ? nullptr : std::move(list);
}

/// One clause. With `compares` there is a "<" without a partner among the clauses, behind which anything
/// may stand.
TreeBuilder::Ptr<BaseClauseNode> TreeBuilder::parseBaseClause(Index first, Index end, bool compares) {
    int access = 0;
    bool isVirtual = false;
    std::string name;
    const auto once = [&](Index keyword, bool seen) {
        if (seen) report("Not expecting to find keyword \"" + t_.spelling(keyword) + "\"", keyword);
    };
    for (Index k = first; k < end; k = nextSig(k)) {
        const Index groupEnd = skipGroup(k);
        if (isAccessKeyword(type(k))) {
            once(k, access != 0);
            if (access == 0) access = type(k);
        } else if (type(k) == tkVirtual) {
            once(k, isVirtual);
            isVirtual = true;
        } else if (groupEnd != k || compares || (isBaseName(type(k)) && (type(k) != tkNumber || !name.empty()))) {
            (name += name.empty() ? "" : " ") += t_.joined(k, groupEnd + 1);
            k = groupEnd;
        } else {
            report("Unexpected Token: \"" + t_.spelling(k) + "\"", k);
        }
    }
    return make<BaseClauseNode>(access, isVirtual, pool_.keep(name), t_.start(first),
                                            t_.end(t_.significantBefore(end)));
}

/// "public:", "public slots:", "slots:".
TreeBuilder::NodePtr TreeBuilder::parseAccessLabel() {
    const Index first = at_;
    const int access = isAccessKeyword(type(first)) ? type(first) : 0;
    Index j = nextSig(first);
    if (access != 0) {
        while (type(j) == tkIdentifier) j = nextSig(j);
    }
    if (type(j) == tkColon) {
        at_ = j + 1;
        return make<AccessSpecNode>(access, t_.start(first), t_.end(j));
    }
    report("Expected ':' Found: " + t_.spelling(j), j);
    at_ = first + 1;
    return make<AccessSpecNode>(access, t_.start(first), t_.end(first));
}

TreeBuilder::NodePtr TreeBuilder::parseEnumDecl(Index first, Index brace) {
    first = sig(first);
    std::string name;
    bool found = false;
    for (Index j = first; j < brace; j = nextSig(j)) {
        if (type(j) == tkEnum && !found) found = true;
        else if (found) (name += name.empty() ? "" : " ") += t_.spelling(j);
    }
    auto head = make<EnumHeadNode>(pool_.keep(name), t_.start(first), t_.end(t_.significantBefore(brace)));
    Ptr<EnumBodyNode> body = parseEnumBody(brace);
    if (!body) return nullptr;
    auto node = make<EnumDeclNode>(head.release(), body.release());
    endAtSemicolon(*node);
    return node;
}

/// One expression node for each enumerator, up to and with its comma.
TreeBuilder::Ptr<EnumBodyNode> TreeBuilder::parseEnumBody(Index brace) {
    const Index close = t_.mate(brace);
    if (close == kNone) {
        report("Expected \"}\" first to close enum declaration.", brace);
        reportEnd(t_.size());
        at_ = t_.size();
        return nullptr;
    }
    auto body = make<EnumBodyNode>(t_.start(brace), t_.end(close));
    Index first = kNone;
    const auto flush = [&](Index end) {
        if (first != kNone) {
            const Index last = t_.significantBefore(end);
            const Index textEnd = type(last) == tkComma ? last : end;
            body->append(make<ExprNode>(joined(first, textEnd), t_.start(first), t_.end(last)));
        }
        first = kNone;
    };
    for (at_ = brace + 1; at_ < close;) {
        if (isCommentOrDirective(type(at_))) {
            flush(at_);
            addNote(*body);
            continue;
        }
        if (first == kNone && type(at_) != tkComma) first = at_;
        const bool opens = type(at_) == tkOpenParen || type(at_) == tkOpenBrace || type(at_) == tkOpenBracket;
        if (type(at_) == tkComma) {
            if (first == kNone) first = at_;
            flush(at_ + 1);
        }
        at_ = opens && t_.mate(at_) != kNone ? t_.mate(at_) + 1 : at_ + 1;
    }
    flush(close);
    at_ = close + 1;
    return body;
}

TreeBuilder::NodePtr TreeBuilder::parseNamespace() {
    const Index first = at_;
    const Index keyword = skipSpecifiers(first);
    const Index name = nextSig(keyword);
    if (type(name) == tkIdentifier && nextType(name) == tkAssign) {
        skipThroughSemicolon(nullptr);
        return nullptr;
    }
    if (tooDeep(keyword)) return nullptr;
    const Depth depth(*this);
    const bool named = type(name) == tkIdentifier && !takesPair(name);
    const Index last = named ? name : keyword;
    auto head = make<NamespaceHeadNode>(named ? spelled(name) : NodeText(), t_.start(first),
                                                    t_.end(last));
    // Between the name and the brace macros and attributes may stand.
    Index j = nextSig(last);
    while (type(j) == tkIdentifier || isAttribute(j) || type(j) == tkOpenParen) {
        j = type(j) == tkIdentifier ? nextSig(j) : t_.mate(j) != kNone ? nextSig(t_.mate(j)) : t_.size();
    }
    if (type(j) != tkOpenBrace) {
        report("Expected:: \"{\".", j);
        at_ = keyword + 1;
        return nullptr;
    }
    if (isUnclosed(j)) return nullptr;
    auto body = make<NamespaceBodyNode>();
    body->setStart(t_.start(j));
    at_ = j + 1;
    if (!parseBody(*body, Body::Namespace)) return nullptr;
    body->setEnd(t_.end(at_));
    ++at_;
    return make<NamespaceDeclNode>(head.release(), body.release());
}

/// A template head; or a statement, where no "<" follows: an explicit instantiation.
TreeBuilder::NodePtr TreeBuilder::parseTemplate() {
    const Index first = at_;
    const Index keyword = skipSpecifiers(first);
    const Index open = nextSig(keyword);
    if (type(open) != tkLess) return parseExpressionStatement();
    const Index close = t_.mate(open);
    if (close == kNone) {
        reportEnd(t_.size());
        at_ = open + 1;
        return nullptr;
    }
    auto word = make<KeywordNode>(tkTemplate, t_.start(first), t_.end(keyword));
    Ptr<ParameterListNode> params = parseParameterList(open, close);
    at_ = close + 1;
    return make<TemplateNode>(word.release(), params.release());
}

TreeBuilder::NodePtr TreeBuilder::parseExtern() {
    const Index first = at_;
    const Index string = nextSig(skipSpecifiers(first));
    if (type(string) == tkStringLiteral && nextType(string) == tkOpenBrace) return parseLinkageBlock(string);
    NodePtr node = parseDeclaration(false);
    if (!node) report(7, first);
    return node;
}

/// The read point is at the head of the block, "extern" with its string or "export".
TreeBuilder::NodePtr TreeBuilder::parseLinkageBlock(Index lastOfHead) {
    const Index keyword = at_;
    if (tooDeep(keyword)) return nullptr;
    const Depth depth(*this);
    auto linkage = make<ExprNode>(joined(keyword, lastOfHead + 1), t_.start(keyword), t_.end(lastOfHead));
    const Index brace = nextSig(lastOfHead);
    if (isUnclosed(brace)) return nullptr;
    auto body = make<LinkageBlockBodyNode>();
    body->setStart(t_.start(brace));
    at_ = brace + 1;
    // Only 'C' linkage forbids templates.
    const Body kind = isWord(lastOfHead, "\"C\"") ? Body::CLinkage : Body::CppLinkage;
    if (!parseBody(*body, kind)) return nullptr;
    body->setEnd(t_.end(at_));
    ++at_;
    return make<LinkageBlockNode>(linkage.release(), body.release());
}

} // namespace Cpp
