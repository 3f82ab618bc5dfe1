#ifndef KERFLINE_NORVANEQT_OPTIONROW_H
#define KERFLINE_NORVANEQT_OPTIONROW_H

#include "qt/NorvaneQt_OptionEditor.h"

#include <functional>
#include <string>

class QCheckBox;
class QGridLayout;
class QLabel;

namespace NorvaneQt {

/// One option on a page: a tick that says whether the scheme has a value, the value, and below it
/// what is wrong with an entry.
///
/// The tick tells an empty value from none: without it, the source decides.
class OptionRow : public QObject {
public:
    /// Called when the user turns to the row, with the name of its option.
    using HintAction = std::function<void(const std::string&)>;

    /// Adds itself to the end of a grid, whose widget owns it. The page outlives it.
    OptionRow(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field, QGridLayout& grid);

    void setEditedAction(std::function<void()> action);
    void setHintAction(HintAction action) { hintAction_ = std::move(action); }

    const std::string& option() const { return option_; }
    void show(const NorvaneUI::Field& field);
    void takeFocus();
    int labelWidth() const;
    void setLabelWidth(int width);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void tick(bool on);
    void showEdited(bool edited);

    NorvaneUI::StylesBasePage& page_;
    std::string option_;
    QCheckBox* tick_;
    OptionEditor* editor_;
    QLabel* problem_;
    std::function<void()> editedAction_;
    HintAction hintAction_;
};

} // namespace NorvaneQt

#endif
