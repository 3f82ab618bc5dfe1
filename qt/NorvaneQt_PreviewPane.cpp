#include "qt/NorvaneQt_PreviewPane.h"

#include "qt/NorvaneQt_Palettes.h"
#include "qt/NorvaneQt_PreviewText.h"
#include "qt/NorvaneQt_Text.h"
#include "qt/NorvaneQt_Widgets.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace NorvaneQt {

namespace {

constexpr std::size_t kMostMessages = 4;

/// Where a scheme does not know, tabs are shown as most programs show them.
constexpr int kUsualTab = 8;

int numberIn(const Norvane::PropertySet& scheme, const char* option, int otherwise) {
    std::int32_t value = 0;
    return scheme.getInt(option, value) && value > 1 ? value : otherwise;
}

/// The column at which lines are broken; 0 if none is.
int marginOf(const Norvane::PropertySet& scheme) {
    bool breaks = false;
    scheme.getBool("LINE_WRAP", breaks);
    return breaks ? numberIn(scheme, "RIGHT_MARGIN", 0) : 0;
}

} // namespace

PreviewPane::PreviewPane(NorvaneUI::StylesSheet& sheet, QWidget* parent)
    : QWidget(parent), sheet_(sheet), source_(new QLabel), text_(new PreviewText(this)), messages_(new QLabel),
      whiteSpace_(new QCheckBox(QStringLiteral("&Visible white space"))),
      ownText_(makeButton(QStringLiteral("&Open a File..."), "ownText", this)),
      sample_(makeButton(QStringLiteral("Sample Te&xt"), "sampleText", this)) {
    text_->setObjectName(QStringLiteral("preview"));
    text_->setAccessibleName(QStringLiteral("Preview"));
    whiteSpace_->setObjectName(QStringLiteral("visibleWhiteSpace"));
    messages_->setObjectName(QStringLiteral("previewMessages"));
    messages_->setTextFormat(Qt::PlainText);
    messages_->setWordWrap(true);
    source_->setTextFormat(Qt::PlainText);
    // A long path must not make the window wider.
    source_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    source_->setMinimumWidth(source_->fontMetrics().averageCharWidth() * 10);
    auto* head = new QHBoxLayout;
    head->addWidget(source_, 1);
    head->addWidget(whiteSpace_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ownText_);
    buttons->addWidget(sample_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(head);
    column->addWidget(text_, 1);
    column->addWidget(messages_);
    column->addLayout(buttons);
    QObject::connect(whiteSpace_, &QCheckBox::toggled, text_, [this](bool on) { text_->setWhiteSpaceVisible(on); });
    QObject::connect(ownText_, &QPushButton::clicked, this, [this] {
        sheet_.chooseOwnText();
        refresh();
    });
    QObject::connect(sample_, &QPushButton::clicked, this, [this] {
        sheet_.dropOwnText();
        refresh();
    });
}

void PreviewPane::refresh() {
    if (const NorvaneUI::SchemeEdit* edit = sheet_.scheme()) {
        text_->setTabSize(numberIn(edit->scheme(), "TAB_SIZE", kUsualTab));
        text_->setMargin(marginOf(edit->scheme()));
    }
    const NorvaneUI::ReadOnlyEdit& preview = sheet_.preview();
    text_->showText(toQt(preview.text()), preview.touchedLines());
    showSource();
    showMessages();
}

void PreviewPane::showSource() {
    const std::string& path = sheet_.ownTextPath();
    const std::string name = path.substr(path.rfind('/') + 1);
    source_->setText(path.empty() ? QStringLiteral("Sample") : toQt(name));
    source_->setToolTip(toQt(path));
    sample_->setEnabled(!path.empty());
}

void PreviewPane::showMessages() {
    const std::vector<std::string>& messages = sheet_.preview().messages();
    QStringList lines;
    for (const std::string& message : messages) {
        if (static_cast<std::size_t>(lines.size()) == kMostMessages) break;
        lines += toQt(message);
    }
    if (messages.size() > kMostMessages) lines += QStringLiteral("...");
    messages_->setText(lines.join(QLatin1Char('\n')));
    messages_->setVisible(!lines.isEmpty());
    setTextColor(*messages_, problemColor(palette()));
}

} // namespace NorvaneQt
