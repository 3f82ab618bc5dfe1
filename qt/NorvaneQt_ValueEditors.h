#ifndef KERFLINE_NORVANEQT_VALUEEDITORS_H
#define KERFLINE_NORVANEQT_VALUEEDITORS_H

#include "qt/NorvaneQt_OptionEditor.h"

#include <string>

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace NorvaneQt {

class WhiteSpacePicture;

/// Text with escapes, and a picture of what it stands for.
class WhiteSpaceEditor : public OptionEditor {
public:
    WhiteSpaceEditor(NorvaneUI::StylesBasePage& page, std::string option);

    void show(const NorvaneUI::Field& field) override;
    QWidget* input() override;

private:
    QLineEdit* text_;
    WhiteSpacePicture* picture_;
};

/// So many blanks or tabs. An indent that mixes both is text with escapes.
class IndentEditor : public OptionEditor {
public:
    IndentEditor(NorvaneUI::StylesBasePage& page, std::string option);

    void show(const NorvaneUI::Field& field) override;
    QWidget* input() override;

private:
    void store();

    QSpinBox* count_;
    QComboBox* kind_;
    QLineEdit* text_;
};

/// One of a few values. Those of a switch are yes and no.
class ChoiceEditor : public OptionEditor {
public:
    ChoiceEditor(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field);

    void show(const NorvaneUI::Field& field) override;
    QWidget* input() override;

private:
    void choose(int item);

    bool isSwitch_;
    int ownItems_ = 0;
    QComboBox* box_;
};

class NumberEditor : public OptionEditor {
public:
    NumberEditor(NorvaneUI::StylesBasePage& page, const NorvaneUI::Field& field);

    void show(const NorvaneUI::Field& field) override;
    QWidget* input() override;

private:
    QSpinBox* number_;
};

} // namespace NorvaneQt

#endif
