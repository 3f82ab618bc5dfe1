#ifndef KERFLINE_NORVANE_CPPFORMATTER_GUARDS_H
#define KERFLINE_NORVANE_CPPFORMATTER_GUARDS_H

#include "src/format/Norvane_CppFormatter.h"

#include <algorithm>

namespace Norvane {

// The scope objects of the formatter pass: each puts back at its end what it found at its start.

/// Sets the left edge: the indent of the writer and whether it keeps leading white space.
class CppFormatter::Edge {
public:
    Edge(CppFormatter& formatter, std::string_view indent, bool keepLeadingWs) : formatter_(formatter) {
        open(indent, keepLeadingWs);
    }
    /// The edge of a body. An option that is not set leaves the edge as it is.
    Edge(CppFormatter& formatter, const OptionalString& spec) : formatter_(formatter) {
        if (spec.set) open(formatter.bodyIndent(spec), false);
    }
    ~Edge() {
        if (!changed_) return;
        formatter_.output_.setIndent(formatter_.savedIndents_[--formatter_.openEdges_]);
        formatter_.output_.setKeepLeadingWs(savedKeep_);
    }
    Edge(const Edge&) = delete;
    Edge& operator=(const Edge&) = delete;

private:
    void open(std::string_view indent, bool keepLeadingWs) {
        auto& saved = formatter_.savedIndents_;
        if (formatter_.openEdges_ == saved.size()) saved.emplace_back();
        saved[formatter_.openEdges_++] = formatter_.output_.indent();
        savedKeep_ = formatter_.output_.keepLeadingWs();
        changed_ = true;
        formatter_.output_.setIndent(indent);
        formatter_.output_.setKeepLeadingWs(keepLeadingWs);
    }

    CppFormatter& formatter_;
    bool savedKeep_ = false;
    bool changed_ = false;
};

/// Looks at its end whether a construct that was to stay on one line has done so.
class CppFormatter::OneLine {
public:
    OneLine(CppFormatter& formatter, const Position& start, bool active, bool isList = false)
        : formatter_(formatter), begin_(formatter.source_.offsetOf(start)), isList_(isList),
          line_(active ? formatter.output_.line() : 0) {}
    ~OneLine() {
        if (line_ > 0) formatter_.noteLine(begin_, line_, isList_);
    }
    OneLine(const OneLine&) = delete;
    OneLine& operator=(const OneLine&) = delete;

private:
    CppFormatter& formatter_;
    std::size_t begin_;
    bool isList_;
    int line_; // of the output; 0 if there is nothing to look at
};

/// Lets no statement keep its shape: what is written in the scope goes by the rules until the next
/// statement in it begins. At the end the one around goes on.
class CppFormatter::ShapeScope {
public:
    explicit ShapeScope(CppFormatter& formatter)
        : formatter_(formatter), shape_(formatter.output_.shape()), start_(formatter.shapeStart_),
          open_(formatter.statementOpen_), column_(formatter.statementColumn_),
          line_(formatter.statementLine_) {
        if (!formatter_.ownsShape()) return;
        formatter_.output_.setShape({});
        formatter_.shapeStart_ = std::string_view::npos;
        formatter_.statementOpen_ = false;
        formatter_.statementLine_ = 0;
    }
    ~ShapeScope() {
        if (!formatter_.ownsShape()) return;
        formatter_.output_.setShape(shape_);
        formatter_.shapeStart_ = start_;
        formatter_.statementOpen_ = open_;
        formatter_.statementColumn_ = column_;
        formatter_.statementLine_ = line_;
    }
    ShapeScope(const ShapeScope&) = delete;
    ShapeScope& operator=(const ShapeScope&) = delete;

private:
    CppFormatter& formatter_;
    Zelmar::LineShape shape_;
    std::size_t start_;
    bool open_;
    int column_;
    int line_;
};

/// Makes `base` the base column of what is written in the scope.
class CppFormatter::BaseScope {
public:
    BaseScope(CppFormatter& formatter, const Base& base)
        : formatter_(formatter), depth_(formatter.baseColumns_.size()) {
        formatter.baseColumns_.push_back(base);
    }
    // Not a plain pop: a template head inside may have left its column.
    ~BaseScope() { formatter_.baseColumns_.resize(std::min(depth_, formatter_.baseColumns_.size())); }
    BaseScope(const BaseScope&) = delete;
    BaseScope& operator=(const BaseScope&) = delete;

private:
    CppFormatter& formatter_;
    std::size_t depth_;
};

/// Keeps apart the pending white space of a construct and that of those around it: what stands on
/// the stack already cannot be taken in the scope, and what the scope leaves is dropped.
class CppFormatter::PendingScope {
public:
    explicit PendingScope(CppFormatter& formatter)
        : formatter_(formatter), size_(formatter.pendingWs_.size()), floor_(formatter.pendingFloor_) {
        formatter.pendingFloor_ = size_;
    }
    ~PendingScope() {
        formatter_.pendingWs_.resize(std::min(size_, formatter_.pendingWs_.size()));
        formatter_.pendingFloor_ = floor_;
    }
    PendingScope(const PendingScope&) = delete;
    PendingScope& operator=(const PendingScope&) = delete;

private:
    CppFormatter& formatter_;
    std::size_t size_;
    std::size_t floor_;
};

/// What holds for one list of children only: pending white space, and the column and flag that a
/// template head leaves behind.
class CppFormatter::ChildScope {
public:
    explicit ChildScope(CppFormatter& formatter)
        : formatter_(formatter), pending_(formatter), bases_(formatter.baseColumns_.size()),
          scopeBases_(formatter.scopeBases_), templateBases_(formatter.templateBases_),
          templatePending_(formatter.templateColumnPending_) {
        formatter.scopeBases_ = bases_;
        formatter.templateColumnPending_ = false;
    }
    ~ChildScope() {
        formatter_.baseColumns_.resize(std::min(bases_, formatter_.baseColumns_.size()));
        formatter_.scopeBases_ = scopeBases_;
        formatter_.templateBases_ = templateBases_;
        formatter_.templateColumnPending_ = templatePending_;
    }
    ChildScope(const ChildScope&) = delete;
    ChildScope& operator=(const ChildScope&) = delete;

private:
    CppFormatter& formatter_;
    PendingScope pending_;
    std::size_t bases_;
    std::size_t scopeBases_;
    std::size_t templateBases_;
    bool templatePending_;
};

} // namespace Norvane

#endif
