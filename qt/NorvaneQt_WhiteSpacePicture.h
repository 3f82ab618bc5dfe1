#ifndef KERFLINE_NORVANEQT_WHITESPACEPICTURE_H
#define KERFLINE_NORVANEQT_WHITESPACEPICTURE_H

#include <QWidget>

#include <optional>
#include <string>

class QPainter;

namespace NorvaneQt {

/// Draws white space between two blocks that stand for the code around it: a tray for a blank, an
/// arrow for a tab, a bent arrow for a line end. The blocks touch where there is nothing between
/// them. Draws nothing at all if there is no value.
class WhiteSpacePicture : public QWidget {
public:
    explicit WhiteSpacePicture(QWidget* parent);

    void setValue(const std::optional<std::string>& value);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawMark(QPainter& painter, const QRectF& cell, char c) const;

    std::optional<std::string> value_;
};

} // namespace NorvaneQt

#endif
