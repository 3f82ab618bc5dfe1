#include "qt/NorvaneQt_HelpWindow.h"

#include "help/Help_Html.h"
#include "help/Help_Topic.h"
#include "qt/NorvaneQt_Text.h"

#include <QUrl>

#include <variant>
#include <vector>

namespace NorvaneQt {

namespace {

/// The stylesheet of the pages is for browsers, which have colours of their own. Here those of the
/// window hold.
constexpr const char* kStyle = "h1 { font-size: x-large; } h2 { font-size: large; } nav { font-size: small; }";

/// Pictures show this program, to those who do not have it in front of them.
Help::Document withoutPictures(Help::Document document) {
    std::erase_if(document.blocks,
                  [](const Help::Block& block) { return std::holds_alternative<Help::Picture>(block); });
    return document;
}

QString pageOf(const Help::Topic& topic) {
    std::vector<Help::PageLink> links;
    for (const Help::Topic& other : Help::topicTable()) links.push_back({other.file, other.title});
    return toQt(Help::htmlPage(withoutPictures(Help::topicDocument(topic)), topic.file, links));
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent) : QTextBrowser(parent) {
    setWindowFlag(Qt::Window);
    setWindowTitle(QStringLiteral("Kerfline Help"));
    setOpenExternalLinks(true);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 40);
}

bool HelpWindow::showTopic(const std::string& topic) {
    if (Help::findTopic(topic.substr(0, topic.find('#'))) == nullptr) return false;
    // The place on a page is found by the size of the window.
    show();
    setSource(QUrl(toQt(topic)));
    raise();
    activateWindow();
    return true;
}

QVariant HelpWindow::loadResource(int type, const QUrl& name) {
    if (type == QTextDocument::StyleSheetResource) return QString::fromLatin1(kStyle);
    const Help::Topic* topic = Help::findTopic(fromQt(name.path()));
    return topic == nullptr ? QVariant() : QVariant(pageOf(*topic));
}

void HelpWindow::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    // A page that is not known here, such as one on the disk, would leave an empty window.
    const bool isKnown = name.path().isEmpty() || Help::findTopic(fromQt(name.path())) != nullptr;
    if (isKnown) QTextBrowser::doSetSource(name, type);
}

} // namespace NorvaneQt
