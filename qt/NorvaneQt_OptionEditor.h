#ifndef KERFLINE_NORVANEQT_OPTIONEDITOR_H
#define KERFLINE_NORVANEQT_OPTIONEDITOR_H

#include "ui/NorvaneUI_StylesBasePage.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string>

namespace NorvaneQt {

/// The control for the value of one option. It writes each edit into the page at once.
class OptionEditor : public QWidget {
public:
    /// The page outlives the editor.
    OptionEditor(NorvaneUI::StylesBasePage& page, std::string option);

    /// Called after each edit, with the field of the page changed.
    void setEditedAction(std::function<void()> action) { editedAction_ = std::move(action); }

    virtual void show(const NorvaneUI::Field& field) = 0;
    /// The widget that takes the keys.
    virtual QWidget* input() = 0;

protected:
    NorvaneUI::StylesBasePage& page() { return page_; }
    const std::string& option() const { return option_; }
    void tellEdited();

private:
    NorvaneUI::StylesBasePage& page_;
    std::string option_;
    std::function<void()> editedAction_;
};

/// The editor for the kind of the option, named like the option.
std::unique_ptr<OptionEditor> makeEditor(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field);

} // namespace NorvaneQt

#endif
