#ifndef KERFLINE_NORVANEQT_PREVIEWTEXT_H
#define KERFLINE_NORVANEQT_PREVIEWTEXT_H

#include <QPlainTextEdit>

#include <cstddef>
#include <vector>

namespace NorvaneQt {

/// Code to look at: with marks for white space, some lines set off, and a line at the margin.
class PreviewText : public QPlainTextEdit {
public:
    explicit PreviewText(QWidget* parent);

    /// Keeps the place that the user looks at, unless none of `touched`, counted from 0 and rising,
    /// can be seen from there.
    void showText(const QString& text, const std::vector<std::size_t>& touched);
    void setWhiteSpaceVisible(bool visible);
    /// In columns.
    void setTabSize(int columns);
    /// Columns in front of the line; 0 for no line.
    void setMargin(int columns);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void replaceText(const QString& text);
    void mark(const std::vector<std::size_t>& lines);
    void bringIntoView(const std::vector<std::size_t>& lines);

    /// The document gives its text back only roughly: it knows no difference between kinds of blanks.
    QString shown_;
    std::vector<std::size_t> touched_;
    int margin_ = 0;
};

} // namespace NorvaneQt

#endif
