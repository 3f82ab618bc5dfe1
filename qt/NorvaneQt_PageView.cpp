#include "qt/NorvaneQt_PageView.h"

#include "qt/NorvaneQt_OptionRow.h"
#include "qt/NorvaneQt_Text.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace NorvaneQt {

namespace {

/// The rows that the choice between global and own settings is about.
constexpr std::size_t kBodyRows = 4;

constexpr const char* kFirstHint =
    "With a tick, the scheme decides. Without one, the code stays as it is in the source.";

/// The other button of a choice has no option to be called after.
std::string ownSettingsName(const std::string& key) {
    return key.substr(0, key.find("_USE_GLOBAL_SETTINGS")) + "_OWN_SETTINGS";
}

/// As tall as its longest text, so that the rows above do not jump when it changes.
QLabel* makeHint(QWidget* parent) {
    auto* hint = new QLabel(QString::fromUtf8(kFirstHint), parent);
    hint->setObjectName(QStringLiteral("hint"));
    hint->setWordWrap(true);
    hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    hint->setFrameShape(QFrame::StyledPanel);
    hint->setMargin(hint->fontMetrics().averageCharWidth());
    constexpr int lines = 4;
    hint->setMinimumHeight(hint->fontMetrics().lineSpacing() * lines + 2 * hint->margin());
    return hint;
}

} // namespace

PageView::PageView(NorvaneUI::StylesBasePage& page, QWidget* parent)
    : QWidget(parent), page_(page), doNotFormat_(new QCheckBox(QStringLiteral("Do not &format: leave the code as it is"))),
      scroll_(new QScrollArea), hint_(makeHint(this)) {
    doNotFormat_->setObjectName(toQt(page.doNotFormatKey()));
    QObject::connect(doNotFormat_, &QCheckBox::toggled, this, [this](bool on) {
        page_.setDoNotFormat(on);
        refresh();
    });
    auto* content = new QWidget;
    auto* form = new QVBoxLayout(content);
    addGlobalChoice(*form);
    addRows(*form);
    form->addStretch(1);
    scroll_->setWidget(content);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    // The colour of whatever the page stands on.
    scroll_->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    // Room for all of it if the screen has it; what is too wide for a small one can be scrolled to.
    constexpr int fewestColumns = 40;
    scroll_->setMinimumWidth(scroll_->fontMetrics().averageCharWidth() * fewestColumns);
    width_ = content->minimumSizeHint().width() + scroll_->fontMetrics().height() * 2;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* title = new QLabel(QStringLiteral("<b>%1</b>").arg(toQt(page.info().title)));
    column->addWidget(title);
    column->addWidget(doNotFormat_);
    column->addWidget(scroll_, 1);
    column->addWidget(hint_);
    refresh();
}

void PageView::addGlobalChoice(QVBoxLayout& form) {
    if (page_.useGlobalSettingsKey().empty()) return;
    globalSettings_ = new QRadioButton(QStringLiteral("Use the &global settings"));
    globalSettings_->setObjectName(toQt(page_.useGlobalSettingsKey()));
    globalSettings_->setToolTip(QStringLiteral("Takes the braces, the indent, the parens and the comma from the page "
                                               "Globals"));
    ownSettings_ = new QRadioButton(QStringLiteral("Use settings of this page's o&wn"));
    ownSettings_->setObjectName(toQt(ownSettingsName(page_.useGlobalSettingsKey())));
    globalNote_ = new QLabel;
    globalNote_->setObjectName(QStringLiteral("globalNote"));
    globalNote_->setWordWrap(true);
    globalNote_->setTextFormat(Qt::PlainText);
    form.addWidget(ownSettings_);
    form.addWidget(globalSettings_);
    form.addWidget(globalNote_);
    QObject::connect(globalSettings_, &QRadioButton::toggled, this, [this](bool on) {
        page_.setUseGlobalSettings(on);
        refresh();
    });
}

void PageView::addRows(QVBoxLayout& form) {
    const auto& fields = page_.fields();
    const std::size_t ofBody = page_.info().hasBody ? std::min(kBodyRows, fields.size()) : 0;
    QGridLayout* grid = nullptr;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i == 0 && ofBody > 0) grid = addGroup(form, QStringLiteral("Braces and indent"));
        else if (i == ofBody) grid = addGroup(form, ofBody > 0 ? QStringLiteral("Further options") : QString());
        addRow(*grid, fields[i]);
    }
    alignControls();
}

/// One column of controls, across the groups.
void PageView::alignControls() {
    int widest = 0;
    for (const OptionRow* row : rows_) widest = std::max(widest, row->labelWidth());
    for (OptionRow* row : rows_) row->setLabelWidth(widest);
}

QGridLayout* PageView::addGroup(QVBoxLayout& form, const QString& title) {
    auto* group = new QGroupBox(title);
    form.addWidget(group);
    auto* grid = new QGridLayout(group);
    grid->setColumnStretch(1, 1);
    return grid;
}

void PageView::addRow(QGridLayout& grid, const NorvaneUI::Field& field) {
    auto* row = new OptionRow(page_, field, grid);
    row->setEditedAction([this] { refresh(); });
    row->setHintAction([this](const std::string& option) { showHint(option); });
    rows_.push_back(row);
}

void PageView::showHint(const std::string& option) {
    const NorvaneUI::Field* field = page_.find(option);
    if (field == nullptr) return;
    const QString text = toQt(field->explanation).toHtmlEscaped();
    const QString edited = field->edited ? QStringLiteral("<br>Changed since the scheme was saved.") : QString();
    hint_->setText(QStringLiteral("<b>%1</b><br>%2.%3").arg(toQt(option), text, edited));
}

void PageView::refresh() {
    const QSignalBlocker boxBlocker(doNotFormat_);
    doNotFormat_->setChecked(page_.doNotFormat());
    for (OptionRow* row : rows_) {
        if (const NorvaneUI::Field* field = page_.find(row->option())) row->show(*field);
    }
    if (globalSettings_ == nullptr) return;
    const QSignalBlocker globalBlocker(globalSettings_);
    const QSignalBlocker ownBlocker(ownSettings_);
    (page_.useGlobalSettings() ? globalSettings_ : ownSettings_)->setChecked(true);
    globalSettings_->setEnabled(!page_.doNotFormat());
    ownSettings_->setEnabled(!page_.doNotFormat());
    globalNote_->setText(toQt(page_.globalSettingsNote()));
    // Before the choice, too: it tells what the choice would bring.
    globalNote_->setVisible(!page_.doNotFormat() && !globalNote_->text().isEmpty());
}

QSize PageView::sizeHint() const { return {std::max(width_, QWidget::sizeHint().width()), QWidget::sizeHint().height()}; }

std::string PageView::focusedOption() const {
    const QWidget* focus = window()->focusWidget();
    if (focus == nullptr || !isAncestorOf(focus)) return {};
    std::string name = fromQt(focus->objectName());
    name.resize(std::min(name.size(), name.find(':')));
    return page_.find(name) == nullptr ? std::string() : name;
}

void PageView::focusOption(std::string_view option) {
    if (option == page_.doNotFormatKey()) return doNotFormat_->setFocus(Qt::OtherFocusReason);
    if (globalSettings_ != nullptr && option == page_.useGlobalSettingsKey()) {
        return (page_.useGlobalSettings() ? globalSettings_ : ownSettings_)->setFocus(Qt::OtherFocusReason);
    }
    const auto isMeant = [option](const OptionRow* row) { return row->option() == option; };
    const auto row = std::find_if(rows_.begin(), rows_.end(), isMeant);
    if (row == rows_.end()) return;
    (*row)->takeFocus();
    showHint(std::string(option));
    if (QWidget* input = findChild<QWidget*>(toQt(option))) scroll_->ensureWidgetVisible(input);
}

} // namespace NorvaneQt
