#include "ui/NorvaneUI_SchemeEdit.h"

#include "schemes/NorvaneUI_PropertySetStore.h"

#include <utility>

namespace NorvaneUI {

SchemeEdit::SchemeEdit(Norvane::PropertySet scheme) : original_(scheme), scheme_(std::move(scheme)) {}

bool SchemeEdit::isModified() const { return !isSameScheme(original_, scheme_); }

void SchemeEdit::change(Norvane::PropertySet scheme, Shelves shelves, std::string_view option, bool typing) {
    if (isSameScheme(scheme, scheme_)) return;
    // A step holds a whole scheme, so this bounds the memory of a long session to a few megabytes.
    constexpr std::size_t mostSteps = 500;
    const bool goesOn = typing && typing_ && !undo_.empty() && undo_.back().option == option;
    if (!goesOn) undo_.push_back({std::move(scheme_), std::move(shelves_), std::string(option)});
    if (undo_.size() > mostSteps) undo_.pop_front();
    redo_.clear();
    scheme_ = std::move(scheme);
    shelves_ = std::move(shelves);
    typing_ = typing;
}

/// Swaps the present scheme against the last one of `from`.
std::string SchemeEdit::take(Steps& from, Steps& to) {
    typing_ = false;
    if (from.empty()) return {};
    Step step = std::move(from.back());
    from.pop_back();
    to.push_back({std::move(scheme_), std::move(shelves_), step.option});
    scheme_ = std::move(step.scheme);
    shelves_ = std::move(step.shelves);
    return step.option;
}

OptionValue SchemeEdit::untickedValue(std::string_view option) const {
    const auto shelf = shelves_.find(kUnticked);
    if (shelf == shelves_.end()) return {};
    const auto value = shelf->second.find(option);
    return value == shelf->second.end() ? OptionValue() : value->second;
}

std::string SchemeEdit::undo() { return take(undo_, redo_); }

std::string SchemeEdit::redo() { return take(redo_, undo_); }

void SchemeEdit::revert() { restart(original_); }

void SchemeEdit::restart(Norvane::PropertySet scheme) { *this = SchemeEdit(std::move(scheme)); }

void SchemeEdit::rename(const std::string& name) {
    for (Steps* steps : {&undo_, &redo_}) {
        for (Step& step : *steps) step.scheme = renamedScheme(step.scheme, name);
    }
    scheme_ = renamedScheme(scheme_, name);
    original_ = renamedScheme(original_, name);
}

} // namespace NorvaneUI
