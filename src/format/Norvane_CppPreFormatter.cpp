#include "src/format/Norvane_CppPreFormatter.h"

#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Scanner.h"

#include <algorithm>

namespace Norvane {

namespace {

std::string trimmed(const std::string& text) {
    const auto first = std::find_if_not(text.begin(), text.end(), Cpp::isSpace);
    const auto last = std::find_if_not(text.rbegin(), text.rend(), Cpp::isSpace).base();
    return first < last ? std::string(first, last) : std::string();
}

} // namespace

void CppPreFormatter::visit(Cpp::RootNode& node) {
    regionFirst_ = nullptr;
    pendingEnd_.clear();
    regions_.clear();
    if (markers_.empty()) return;
    visitChildren(node);
    visitCode(node);
    // Only now, since removing nodes moves the children that the walk goes over, and all at once,
    // since each removal walks the whole tree.
    if (regions_.empty()) return;
    Cpp::NodeRangeRemover remover(regions_);
    node.accept(remover);
    for (Cpp::CodeInExpression& code : node.code()) {
        if (code.hasRegion) code.block->accept(remover);
    }
}

// A region begins and ends in the same piece of code.
void CppPreFormatter::visitCode(Cpp::RootNode& node) {
    for (Cpp::CodeInExpression& code : node.code()) {
        regionFirst_ = nullptr;
        pendingEnd_.clear();
        const std::size_t before = regions_.size();
        code.block->accept(*this);
        code.hasRegion = regions_.size() > before;
    }
}

void CppPreFormatter::visit(Cpp::CommentNode& node) {
    const std::string inner = trimmed(node.markerText());
    if (pendingEnd_.empty()) {
        openRegion(node, inner);
    } else if (inner == pendingEnd_ && regionFirst_->start() < node.start()) {
        // The initializers of a constructor are visited before its parameters, so a comment there
        // can stand in front of the one that opened the region, and is no end of it.
        closeRegion(node);
    }
}

void CppPreFormatter::openRegion(Cpp::CommentNode& comment, const std::string& inner) {
    const auto opens = [&inner](const FormatMarker& marker) { return marker.first == inner; };
    const auto marker = std::find_if(markers_.begin(), markers_.end(), opens);
    if (marker == markers_.end()) return;
    pendingEnd_ = marker->second;
    regionFirst_ = &comment;
}

void CppPreFormatter::closeRegion(Cpp::CommentNode& comment) {
    regions_.push_back({regionFirst_, &comment});
    comment.setStart(regionFirst_->start());
    comment.setText(std::string());
    comment.setVerbatim(true);
    pendingEnd_.clear();
    regionFirst_ = nullptr;
}

} // namespace Norvane
