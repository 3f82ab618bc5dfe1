#ifndef KERFLINE_NORVANEQT_PREVIEWPANE_H
#define KERFLINE_NORVANEQT_PREVIEWPANE_H

#include "ui/NorvaneUI_StylesSheet.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;

namespace NorvaneQt {

class PreviewText;

/// The preview beside the pages: the formatted text, and what can be said about it.
class PreviewPane : public QWidget {
public:
    /// The sheet outlives the pane.
    PreviewPane(NorvaneUI::StylesSheet& sheet, QWidget* parent);

    void refresh();

private:
    void showSource();
    void showMessages();

    NorvaneUI::StylesSheet& sheet_;
    // Owned by this widget.
    QLabel* source_;
    PreviewText* text_;
    QLabel* messages_;
    QCheckBox* whiteSpace_;
    QPushButton* ownText_;
    QPushButton* sample_;
};

} // namespace NorvaneQt

#endif
