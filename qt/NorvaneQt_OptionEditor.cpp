#include "qt/NorvaneQt_OptionEditor.h"

#include "qt/NorvaneQt_Text.h"
#include "qt/NorvaneQt_ValueEditors.h"

#include <utility>

namespace NorvaneQt {

namespace {

using NorvaneUI::ControlKind;

std::unique_ptr<OptionEditor> makeForKind(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field) {
    switch (field.kind) {
    case ControlKind::WhiteSpace: return std::make_unique<WhiteSpaceEditor>(page, std::string(field.option));
    case ControlKind::CountAndKind: return std::make_unique<IndentEditor>(page, std::string(field.option));
    case ControlKind::Number: return std::make_unique<NumberEditor>(page, field);
    case ControlKind::Switch:
    case ControlKind::Choice: break;
    }
    return std::make_unique<ChoiceEditor>(page, field);
}

} // namespace

OptionEditor::OptionEditor(NorvaneUI::StylesBasePage& page, std::string option)
    : page_(page), option_(std::move(option)) {}

void OptionEditor::tellEdited() {
    if (editedAction_) editedAction_();
}

std::unique_ptr<OptionEditor> makeEditor(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field) {
    auto editor = makeForKind(page, field);
    editor->input()->setObjectName(toQt(field.option));
    editor->input()->setAccessibleName(toQt(field.label));
    editor->input()->setAccessibleDescription(toQt(field.explanation));
    return editor;
}

} // namespace NorvaneQt
