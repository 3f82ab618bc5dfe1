#ifndef KERFLINE_NORVANEQT_PAGEVIEW_H
#define KERFLINE_NORVANEQT_PAGEVIEW_H

#include "ui/NorvaneUI_StylesBasePage.h"

#include <QWidget>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QRadioButton;
class QScrollArea;
class QVBoxLayout;

namespace NorvaneQt {

class OptionRow;

/// The form of one page: its switches, a row for each of its options, and below them a line about
/// the option that the user has turned to.
class PageView : public QWidget {
public:
    /// The page outlives the view.
    PageView(NorvaneUI::StylesBasePage& page, QWidget* parent);

    /// Shows the page as it is now.
    void refresh();
    /// To a row, or to one of the switches of the page, by the name of its option.
    void focusOption(std::string_view option);
    /// The option of the row that has the focus; empty if none has.
    std::string focusedOption() const;

    QSize sizeHint() const override;

private:
    void addGlobalChoice(QVBoxLayout& form);
    void addRows(QVBoxLayout& form);
    QGridLayout* addGroup(QVBoxLayout& form, const QString& title);
    void alignControls();
    void addRow(QGridLayout& grid, const NorvaneUI::Field& field);
    void showHint(const std::string& option);

    NorvaneUI::StylesBasePage& page_;
    // Owned by this widget.
    QCheckBox* doNotFormat_;
    QRadioButton* ownSettings_ = nullptr;
    QRadioButton* globalSettings_ = nullptr;
    QLabel* globalNote_ = nullptr;
    QScrollArea* scroll_;
    QLabel* hint_;
    std::vector<OptionRow*> rows_;
    /// At which nothing has to be scrolled to the side.
    int width_ = 0;
};

} // namespace NorvaneQt

#endif
