#ifndef KERFLINE_NORVANEQT_HELPWINDOW_H
#define KERFLINE_NORVANEQT_HELPWINDOW_H

#include <QTextBrowser>

#include <string>

namespace NorvaneQt {

/// The help, page by page. The pages are made when they are looked at, so nothing has to be
/// installed beside the program.
class HelpWindow : public QTextBrowser {
public:
    explicit HelpWindow(QWidget* parent);

    /// The file of a page, such as "Classes.htm", and behind a "#" the option to open it at. False, with the window as it was, if there is none.
    bool showTopic(const std::string& topic);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
};

} // namespace NorvaneQt

#endif
