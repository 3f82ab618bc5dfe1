#ifndef KERFLINE_NORVANEUI_SCHEMEEDIT_H
#define KERFLINE_NORVANEUI_SCHEMEEDIT_H

#include "src/scheme/Norvane_PropertySet.h"
#include "ui/NorvaneUI_OptionValue.h"

#include <deque>
#include <map>
#include <string>
#include <string_view>

namespace NorvaneUI {

/// A scheme that is being edited: as it was, as it is, and the steps in between for undo and redo.
class SchemeEdit {
public:
    /// Values of options that are out of the scheme for now, as they were.
    using Shelf = std::map<std::string, OptionValue, std::less<>>;
    /// By what took them out: the key of a switch of a page, or `kUnticked`.
    using Shelves = std::map<std::string, Shelf, std::less<>>;
    static constexpr const char* kUnticked = "";

    explicit SchemeEdit(Norvane::PropertySet scheme);

    const Norvane::PropertySet& scheme() const { return scheme_; }
    /// The scheme as it was when the edit began, or when it was saved last.
    const Norvane::PropertySet& original() const { return original_; }
    /// False again for one whose changes were taken back one by one.
    bool isModified() const;

    /// One step. What is on the shelves belongs to it, so that undo takes both back. `option` tells what it was about. Steps that follow each other as `typing` in the
    /// same option count as one, so that undo does not go letter by letter.
    void change(Norvane::PropertySet scheme, Shelves shelves, std::string_view option, bool typing = false);
    /// With the shelves as they are.
    void change(Norvane::PropertySet scheme, std::string_view option, bool typing = false) {
        change(std::move(scheme), shelves_, option, typing);
    }
    /// The user has left the field.
    void endTyping() { typing_ = false; }

    bool canUndo() const { return !undo_.empty(); }
    bool canRedo() const { return !redo_.empty(); }
    /// Each returns what the step was about; empty if there is none to take.
    std::string undo();
    std::string redo();

    /// Takes all changes back, and forgets the steps.
    void revert();
    /// What is in memory is now what is saved. Steps before can still be taken back.
    void markSaved() { original_ = scheme_; }
    /// Starts again from another content, with no steps.
    void restart(Norvane::PropertySet scheme);
    void rename(const std::string& name);

    const Shelves& shelves() const { return shelves_; }
    /// What the option said when it was unticked last; nothing if it never was.
    OptionValue untickedValue(std::string_view option) const;

private:
    struct Step {
        Norvane::PropertySet scheme;
        Shelves shelves;
        std::string option;
    };

    using Steps = std::deque<Step>;

    std::string take(Steps& from, Steps& to);

    Norvane::PropertySet original_;
    Norvane::PropertySet scheme_;
    Shelves shelves_;
    Steps undo_;
    Steps redo_;
    bool typing_ = false;
};

} // namespace NorvaneUI

#endif
