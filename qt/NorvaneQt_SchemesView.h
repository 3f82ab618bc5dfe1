#ifndef KERFLINE_NORVANEQT_SCHEMESVIEW_H
#define KERFLINE_NORVANEQT_SCHEMESVIEW_H

#include "qt/NorvaneQt_PreviewRunner.h"
#include "ui/NorvaneUI_StylesDlg.h"

#include <QWidget>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QSplitter;
class QStackedWidget;

namespace NorvaneQt {

class PageList;
class PageView;
class PreviewPane;
class SchemeBar;

/// Everything about schemes: which one, the list of its pages, one page, and the preview.
class SchemesView : public QWidget {
public:
    /// The dialog outlives the view.
    SchemesView(NorvaneUI::StylesDlg& dialog, QWidget* parent);
    ~SchemesView() override;

    /// Called after each refresh.
    void setRefreshAction(std::function<void()> action) { refreshAction_ = std::move(action); }

    /// Shows what the dialog holds now.
    void refresh();
    void selectPage(NorvaneUI::PageId id);
    /// To the control of an option, on the page that the sheet is at.
    void focusOption(std::string_view option);
    void focusSearch();
    /// Empty if the focus is in no option.
    std::string focusedOption();
    QSplitter& splitter() { return *splitter_; }
    void save();

private:
    PageView& currentView();
    void goTo(const std::string& option);

    NorvaneUI::StylesDlg& dialog_;
    std::function<void()> refreshAction_;
    // Owned by this widget.
    std::vector<PageView*> views_;
    SchemeBar* bar_;
    PageList* list_;
    QStackedWidget* stack_;
    PreviewPane* preview_;
    QSplitter* splitter_;
    PreviewRunner runner_;
};

} // namespace NorvaneQt

#endif
