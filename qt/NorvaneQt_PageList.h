#ifndef KERFLINE_NORVANEQT_PAGELIST_H
#define KERFLINE_NORVANEQT_PAGELIST_H

#include "ui/NorvaneUI_PageTable.h"

#include <QWidget>

#include <functional>
#include <string>

class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;

namespace NorvaneQt {

/// The pages by name, and a search over all options in front of them. While something is searched
/// for, what was found stands in the place of the pages.
class PageList : public QWidget {
public:
    explicit PageList(QWidget* parent);

    /// Each is called when the user chooses; what is shown stays until it is told to change.
    void setPageAction(std::function<void(NorvaneUI::PageId)> action) { pageAction_ = std::move(action); }
    void setOptionAction(std::function<void(const std::string&)> action) { optionAction_ = std::move(action); }

    void showPage(NorvaneUI::PageId id);
    void focusSearch();

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void search(const QString& words);
    void openFound();
    bool passKey(QEvent* event);

    std::function<void(NorvaneUI::PageId)> pageAction_;
    std::function<void(const std::string&)> optionAction_;
    // Owned by this widget.
    QLineEdit* words_;
    QListWidget* pages_;
    QListWidget* found_;
    QStackedWidget* lists_;
};

} // namespace NorvaneQt

#endif
