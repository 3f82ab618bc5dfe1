#include "qt/NorvaneQt_SchemesView.h"

#include "qt/NorvaneQt_PageList.h"
#include "qt/NorvaneQt_PageView.h"
#include "qt/NorvaneQt_PreviewPane.h"
#include "qt/NorvaneQt_SchemeBar.h"

#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace NorvaneQt {

SchemesView::SchemesView(NorvaneUI::StylesDlg& dialog, QWidget* parent)
    : QWidget(parent), dialog_(dialog), bar_(new SchemeBar(dialog, this)), list_(new PageList(this)),
      stack_(new QStackedWidget), preview_(new PreviewPane(dialog.sheet(), this)), splitter_(new QSplitter),
      runner_(dialog.sheet().preview().newest(), [this](const NorvaneUI::PreviewResult& result) {
          if (dialog_.sheet().finishPreview(result)) preview_->refresh();
      }) {
    // At once, since the order in which widgets are made is the order in which Tab reaches them.
    for (const auto& page : dialog.sheet().pages()) {
        views_.push_back(new PageView(*page, stack_));
        stack_->addWidget(views_.back());
    }
    splitter_->setObjectName(QStringLiteral("splitter"));
    splitter_->addWidget(list_);
    splitter_->addWidget(stack_);
    splitter_->addWidget(preview_);
    splitter_->setStretchFactor(2, 1);
    splitter_->setChildrenCollapsible(false);
    auto* column = new QVBoxLayout(this);
    column->addWidget(bar_);
    column->addWidget(splitter_, 1);
    list_->setPageAction([this](NorvaneUI::PageId id) { selectPage(id); });
    list_->setOptionAction([this](const std::string& option) { goTo(option); });
    dialog.setListAction([this] { refresh(); });
    dialog.sheet().setPreviewAction([this](NorvaneUI::PreviewJob job) { runner_.start(std::move(job)); });
    refresh();
}

SchemesView::~SchemesView() {
    dialog_.setListAction({});
    dialog_.sheet().setPreviewAction({});
}

PageView& SchemesView::currentView() {
    return *views_[static_cast<std::size_t>(dialog_.sheet().currentPageId())];
}

void SchemesView::refresh() {
    bar_->refresh();
    list_->showPage(dialog_.sheet().currentPageId());
    currentView().refresh();
    stack_->setCurrentWidget(&currentView());
    preview_->setVisible(dialog_.sheet().isPreviewShown());
    preview_->refresh();
    if (refreshAction_) refreshAction_();
}

void SchemesView::selectPage(NorvaneUI::PageId id) {
    dialog_.sheet().selectPage(id);
    refresh();
}

void SchemesView::goTo(const std::string& option) {
    dialog_.sheet().selectOption(option);
    refresh();
}

void SchemesView::focusOption(std::string_view option) {
    refresh();
    currentView().focusOption(option);
}

void SchemesView::focusSearch() { list_->focusSearch(); }

std::string SchemesView::focusedOption() { return currentView().focusedOption(); }

void SchemesView::save() { bar_->save(); }

} // namespace NorvaneQt
