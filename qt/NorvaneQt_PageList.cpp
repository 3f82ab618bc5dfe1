#include "qt/NorvaneQt_PageList.h"

#include "qt/NorvaneQt_Text.h"
#include "ui/NorvaneUI_OptionSearch.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace NorvaneQt {

namespace {

QListWidgetItem* makeItem(const NorvaneUI::SearchHit& hit) {
    const QString place = hit.page == nullptr ? QStringLiteral("no control") : QStringLiteral("in ") + toQt(hit.page->title);
    auto* item = new QListWidgetItem(QStringLiteral("%1\n    %2").arg(toQt(hit.option->label), place));
    item->setData(Qt::UserRole, toQt(hit.option->name));
    item->setToolTip(QStringLiteral("%1\n%2").arg(toQt(hit.option->name), toQt(hit.option->description)));
    if (hit.page == nullptr) item->setFlags(Qt::NoItemFlags);
    return item;
}

} // namespace

PageList::PageList(QWidget* parent)
    : QWidget(parent), words_(new QLineEdit), pages_(new QListWidget), found_(new QListWidget),
      lists_(new QStackedWidget) {
    words_->setObjectName(QStringLiteral("search"));
    words_->setPlaceholderText(QStringLiteral("a word, or a name"));
    words_->setClearButtonEnabled(true);
    words_->installEventFilter(this);
    auto* label = new QLabel(QStringLiteral("F&ind an option:"));
    label->setBuddy(words_);
    pages_->setObjectName(QStringLiteral("pages"));
    pages_->setAccessibleName(QStringLiteral("Pages"));
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) pages_->addItem(toQt(page.title));
    pages_->setMinimumWidth(pages_->sizeHintForColumn(0) + 2 * pages_->fontMetrics().height());
    pages_->setSpacing(pages_->fontMetrics().height() / 6);
    found_->setObjectName(QStringLiteral("found"));
    found_->setAccessibleName(QStringLiteral("Options that were found"));
    found_->setWordWrap(true);
    found_->setAlternatingRowColors(true);
    lists_->addWidget(pages_);
    lists_->addWidget(found_);
    auto* pagesLabel = new QLabel(QStringLiteral("Pag&es:"));
    pagesLabel->setBuddy(pages_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(label);
    column->addWidget(words_);
    column->addWidget(pagesLabel);
    column->addWidget(lists_, 1);
    QObject::connect(words_, &QLineEdit::textChanged, this, [this](const QString& words) { search(words); });
    QObject::connect(found_, &QListWidget::itemClicked, this, [this] { openFound(); });
    QObject::connect(found_, &QListWidget::itemActivated, this, [this] { openFound(); });
    QObject::connect(pages_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && pageAction_) pageAction_(static_cast<NorvaneUI::PageId>(row));
    });
}

void PageList::showPage(NorvaneUI::PageId id) {
    const QSignalBlocker blocker(pages_);
    pages_->setCurrentRow(static_cast<int>(id));
}

void PageList::focusSearch() {
    words_->setFocus(Qt::ShortcutFocusReason);
    words_->selectAll();
}

void PageList::search(const QString& words) {
    found_->clear();
    for (const NorvaneUI::SearchHit& hit : NorvaneUI::searchOptions(fromQt(words))) found_->addItem(makeItem(hit));
    found_->setCurrentRow(0);
    lists_->setCurrentWidget(words.trimmed().isEmpty() ? pages_ : found_);
}

void PageList::openFound() {
    const QListWidgetItem* item = found_->currentItem();
    if (item == nullptr || !item->flags().testFlag(Qt::ItemIsEnabled) || !optionAction_) return;
    optionAction_(fromQt(item->data(Qt::UserRole).toString()));
}

/// While the user types what to search for, the arrow keys go through what was found.
bool PageList::passKey(QEvent* event) {
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        QCoreApplication::sendEvent(lists_->currentWidget(), event);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        openFound();
        return true;
    case Qt::Key_Escape:
        if (words_->text().isEmpty()) return false;
        words_->clear();
        return true;
    default: return false;
    }
}

bool PageList::eventFilter(QObject*, QEvent* event) { return event->type() == QEvent::KeyPress && passKey(event); }

} // namespace NorvaneQt
