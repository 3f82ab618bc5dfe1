#ifndef KERFLINE_NORVANEQT_SCHEMEBAR_H
#define KERFLINE_NORVANEQT_SCHEMEBAR_H

#include "ui/NorvaneUI_StylesDlg.h"

#include <QWidget>

#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace NorvaneQt {

/// The schemes, and what can be done with the one that is chosen.
class SchemeBar : public QWidget {
public:
    /// The dialog outlives the bar.
    SchemeBar(NorvaneUI::StylesDlg& dialog, QWidget* parent);

    void refresh();
    /// Writes all edits. Those of a built-in scheme go into a new one.
    void save();

private:
    void showItems(const std::vector<NorvaneUI::StylesDlg::Item>& items);
    void showWarnings();
    void saveAs();
    void restore();

    NorvaneUI::StylesDlg& dialog_;
    /// In the order of the box. Names can hold bytes that a text on the screen loses.
    std::vector<std::string> names_;
    // Owned by this widget.
    QComboBox* schemes_;
    QLabel* note_;
    QLabel* warnings_;
    std::vector<QPushButton*> needScheme_;
    QPushButton* bringBack_;
    QPushButton* restore_;
};

} // namespace NorvaneQt

#endif
