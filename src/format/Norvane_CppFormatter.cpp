#include "src/format/Norvane_CppFormatter.h"

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppCommentWalker.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"
#include "src/format/Norvane_DataOffsetCalculator.h"
#include "src/format/Norvane_NameOffsetCalculator.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <utility>

namespace Norvane {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Some literal of `text` goes on behind a line feed: one that a backslash joins, or a raw one.
bool joinsLiteral(std::string_view text) {
    if (text.find('\n') + 1 >= text.size() || text.find('"') == std::string_view::npos) return false;
    bool inLiteral = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            inLiteral = !inLiteral;
            if (inLiteral && i > 0 && text[i - 1] == 'R') return true;
        } else if (text[i] == '\\') {
            ++i;
            if (inLiteral && i < text.size() && text[i] == '\n') return true;
        } else if (text[i] == '\n') {
            inLiteral = false;
        }
    }
    return false;
}

} // namespace

/// Collects the regions of a tree.
class CppFormatter::RegionFinder : public CppCommentWalker {
public:
    explicit RegionFinder(const Zelmar::SourceText& source) : source_(source) {}

    using CppCommentWalker::visit;
    void visit(Cpp::CommentNode& node) override {
        if (!node.verbatim()) return;
        const std::size_t begin = source_.offsetOf(node.start());
        regions_.push_back({begin, source_.offsetOf(node.end()) + 1, node.start(), node.end()});
    }
    std::vector<Region> takeInOrder() {
        const auto isBefore = [](const Region& a, const Region& b) { return a.begin < b.begin; };
        std::sort(regions_.begin(), regions_.end(), isBefore);
        return std::move(regions_);
    }

private:
    const Zelmar::SourceText& source_;
    std::vector<Region> regions_;
};

CppFormatter::CppFormatter(std::istream& source, std::ostream& output)
    : CppFormatter(source, output, PropertySet("FormatterProperties")) {}

CppFormatter::CppFormatter(std::istream& source, std::ostream& output, const PropertySet& scheme)
    : CppFormatter(std::make_shared<const Zelmar::SourceText>(Zelmar::readAll(source)), readOptions(scheme)) {
    destination_ = &output;
}

CppFormatter::CppFormatter(std::shared_ptr<const Zelmar::SourceText> source, SharedOptions options)
    : sharedOptions_(std::move(options)), options_(*sharedOptions_), sharedSource_(std::move(source)),
      source_(*sharedSource_), exprFormatter_(sharedOptions_), input_(source_) {
    output_.setTabSize(options_.tabSize);
    output_.setWsMode(options_.convertWs);
}

void CppFormatter::visit(Cpp::RootNode& node) {
    regions_ = findRegions(node);
    if (options_.alignClassMemberNamesLeft || options_.alignFnDeclNamesLeft || options_.alignDdNamesLeft) {
        NameOffsetCalculator calculator(sharedOptions_);
        node.accept(calculator);
        fnNameColumns_ = calculator.fnColumns();
        nameColumns_ = calculator.dataColumns();
    }
    if (options_.alignDdInitializers) {
        DataOffsetCalculator calculator(sharedOptions_);
        node.accept(calculator);
        initializerColumns_ = calculator.columns();
    }
    takeCode(node);
    output_.reserve(source_.size() + source_.size() / 8);
    writeText(node);
    result_ = output_.takeText();
    if (sourceText().starts_with(kByteOrderMark)) result_.insert(0, kByteOrderMark);
    if (destination_ == nullptr) return;
    destination_->write(result_.data(), static_cast<std::streamsize>(result_.size()));
    destination_->flush();
}

std::vector<CppFormatter::Region> CppFormatter::findRegions(Cpp::SyntaxNode& node) const {
    RegionFinder finder(source_);
    node.accept(finder);
    return finder.takeInOrder();
}

void CppFormatter::writePass(Cpp::RootNode& node) {
    // The mark is no text: with it in the line, the first construct would begin in a wrong column.
    if (sourceText().starts_with(kByteOrderMark)) {
        input_.readThrough({1, static_cast<std::uint32_t>(kByteOrderMark.size())});
    }
    const Edge edge(*this, options_.leftMargin.value, !options_.leftMargin.set);
    writeTopLevel(node);
    endShapes({source_.lineCount() + 1, 1}, noWs());
    writeSource(readRest());
}

std::string_view CppFormatter::readUpTo(const Position& position) {
    beginRead();
    return wholeTokens(regions_.empty() ? input_.readUpTo(position) : readToRegionOr(position));
}

// No step ends inside a word or a brace of two characters, wherever the tree has its edges: so nobody
// who writes white space between two steps can tear one apart.
std::string_view CppFormatter::wholeTokens(std::string_view read) {
    const std::size_t at = input_.offset();
    if (read.empty() || at >= source_.size()) return read;
    const char before = read.back();
    const char behind = sourceText()[at];
    if (before == '%' && behind == '>') {
        input_.moveTo(at - 1);
        return read.substr(0, read.size() - 1);
    }
    std::size_t end = at;
    if (before == '<' && behind == '%') ++end;
    if (Cpp::isIdentifierChar(before) || before == '"' || before == '\'') { // a literal may have a suffix
        while (end < source_.size() && Cpp::isIdentifierChar(sourceText()[end])) ++end;
    }
    input_.moveTo(end);
    return {read.data(), read.size() + end - at};
}

// A region may begin in one construct and end in another. So it goes out as soon as a step reads
// across it, whatever is being written: no step ever gets hold of a piece of it. A construct that
// begins within a region begins where the region does.
std::string_view CppFormatter::readToRegionOr(const Position& position) {
    std::size_t offset = source_.offsetOf(position);
    if (offset == Zelmar::SourceText::npos) offset = 0;
    while (nextRegion_ < regions_.size() && regions_[nextRegion_].end <= offset) writeNextRegion();
    gapIsInRegion_ = isInRegion(position);
    const bool cut = nextRegion_ < regions_.size() && regions_[nextRegion_].begin < offset;
    return input_.readUpTo(cut ? regions_[nextRegion_].start : position);
}

std::string_view CppFormatter::readThrough(const Position& position) {
    beginRead();
    const std::size_t offset = regions_.empty() ? 0 : source_.offsetOf(position);
    if (offset != Zelmar::SourceText::npos) {
        while (nextRegion_ < regions_.size() && regions_[nextRegion_].begin <= offset) writeNextRegion();
    }
    return wholeTokens(input_.readThrough(position));
}

std::string_view CppFormatter::readRest() {
    while (nextRegion_ < regions_.size()) writeNextRegion();
    return input_.readRest();
}

void CppFormatter::writeNextRegion() {
    const Region& region = regions_[nextRegion_++];
    writeSource(input_.readUpTo(region.start));
    // The first character still brings the indent of its line along.
    output_.write(input_.readThrough(region.start));
    output_.writeVerbatim(input_.readThrough(region.last));
    noteLineEnd();
}

bool CppFormatter::isInRegion(const Position& position) const {
    const std::size_t offset = source_.offsetOf(position);
    const bool isInNext = nextRegion_ < regions_.size() && regions_[nextRegion_].holds(offset);
    return isInNext || (nextRegion_ > 0 && regions_[nextRegion_ - 1].holds(offset));
}

void CppFormatter::noteLineEnd() {
    const std::size_t offset = input_.offset();
    if (offset > 0 && sourceText()[offset - 1] == '\n') lineEnd_ = offset;
}

bool CppFormatter::isOutputLineBlank() const {
    // From the end: a line of nested heads may be as long as the text.
    const std::string_view text = output_.text();
    for (std::size_t at = text.size(); at > 0 && text[at - 1] != '\n'; --at) {
        if (!Cpp::isSpace(text[at - 1])) return false;
    }
    return true;
}

bool CppFormatter::onlyNotesBetween(std::size_t begin, const Position& end) const {
    const std::size_t stop = source_.offsetOf(end);
    if (stop > source_.size() || stop < begin) return false;
    const std::string_view text = sourceText().substr(begin, stop - begin);
    if (isBlank(text)) return true;
    Cpp::Scanner scanner(text);
    std::size_t at = 0;
    for (Cpp::RawToken token; scanner.next(token); at = token.end) {
        if (!Cpp::isCommentOrDirective(token.type) || !isBlank(text.substr(at, token.begin - at))) return false;
    }
    return isBlank(text.substr(at));
}

void CppFormatter::pushPending(const OptionalString& option) {
    if (option.set) pendingWs_.push_back({option.value});
}

bool CppFormatter::takePending(const Position& start, std::string_view& value) {
    if (pendingWs_.size() <= pendingFloor_) return false;
    const PendingWs pending = pendingWs_.back();
    pendingWs_.pop_back();
    value = pending.value;
    if (start.isNone()) return false;
    return pending.templateEnd == std::string_view::npos || onlyNotesBetween(pending.templateEnd, start);
}

void CppFormatter::beginDeclaration(const Cpp::SyntaxNode& node) {
    std::string_view ws;
    const Position start = node.start();
    if (!takePending(start, ws)) return;
    const std::string_view gap = readUpTo(start);
    const std::string_view value = onOneLine(ws, gap, isOneLiner(node));
    if (value.data() != ws.data()) lineNote_ = {source_.offsetOf(start), output_.line()};
    if (sourceChar(start) == '{') {
        moveGapEnd(gap, value, base());
    } else {
        writeGapEnd(gap, value, base());
    }
}

// Taken by the declaration right behind the head. Where something else stands there, such as a
// "using", the column that the head has left means nothing to the declarations after it.
bool CppFormatter::takeTemplateBase(const Position& start, Base& taken) {
    if (!templateColumnPending_ || baseColumns_.size() != templateBases_) return false;
    templateColumnPending_ = false;
    taken = baseColumns_.back();
    baseColumns_.pop_back();
    return onlyNotesBetween(templateEnd_, start);
}

void CppFormatter::visit(Cpp::CommentNode& node) {
    const Position start = node.start();
    copyUpTo(start);
    if (node.verbatim()) return copyThrough(node.end());
    if (isLineComment(node)) {
        output_.write(readThrough(node.end()));
    } else {
        exprFormatter_.formatMultiLineToken(start, node.end(), input_, output_);
    }
    noteLineEnd();
}

// The white space in front of a directive on its line goes along with it: its column is a matter of
// the directive options alone.
void CppFormatter::visit(Cpp::PreprocDirectiveNode& node) {
    const Position start = node.start();
    if (startsLine(start)) {
        copyUpTo({start.line, 1});
        if (!isOutputLineBlank()) output_.write("\n");
    }
    writeDirective(start, node.end(), input_);
    noteLineEnd();
}

// Where a literal goes on over the line end, the white space of the next line is part of the program.
void CppFormatter::writeDirective(const Position& start, const Position& end, Zelmar::SourceReader& input) {
    const std::size_t begin = source_.offsetOf(start);
    const std::string_view text = sourceText().substr(begin, source_.offsetOf(end) + 1 - begin);
    if (!joinsLiteral(text)) return exprFormatter_.formatDirective(start, end, input, output_);
    exprFormatter_.formatDirective(start, {start.line + 1, 0}, input, output_);
    output_.writeVerbatim(input.readThrough(end));
}

void CppFormatter::visit(Cpp::ExprNode& node) {
    copyUpTo(node.start());
    exprFormatter_.formatTo(readThrough(node.end()), output_);
}

// The text of an assembler block: its lines move with the first one and keep their shape.
void CppFormatter::visit(Cpp::TextNode& node) {
    copyUpTo(node.start());
    exprFormatter_.formatMultiLineToken(node.start(), node.end(), input_, output_);
}

void CppFormatter::visit(Cpp::KeywordNode& node) { copyNode(node); }
void CppFormatter::visit(Cpp::IdNode& node) { copyNode(node); }
void CppFormatter::visit(Cpp::TypeNode& node) { copyNode(node); }
void CppFormatter::visit(Cpp::EnumHeadNode& node) { copyNode(node); }
void CppFormatter::visit(Cpp::NamespaceHeadNode& node) { copyNode(node); }
void CppFormatter::visit(Cpp::ClassNameNode& node) { copyNode(node); }

} // namespace Norvane
