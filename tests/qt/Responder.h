#ifndef KERFLINE_TESTS_RESPONDER_H
#define KERFLINE_TESTS_RESPONDER_H

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <deque>
#include <optional>
#include <string>
#include <vector>

/// The user in front of the boxes: reads each that opens, and answers it as planned. One that was
/// not planned for is noted and closed, so that a test fails instead of waiting for ever.
class Responder {
public:
    Responder() {
        QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] { look(); });
        clock_.start(2);
    }

    void press(QMessageBox::StandardButton button) { planned_.push_back({button, std::nullopt}); }
    /// As somebody who presses Return or Escape without reading.
    void key(Qt::Key pressed) { planned_.push_back({QMessageBox::NoButton, std::nullopt, pressed}); }
    /// A name that is asked for; nothing to cancel.
    void enter(std::optional<std::string> name) { planned_.push_back({QMessageBox::Ok, std::move(name)}); }

    /// What the boxes said, in turn. That of one that asks for a name is what it proposed.
    std::vector<std::string> texts;
    int surprises = 0;
    bool isDone() const { return planned_.empty() && surprises == 0; }

private:
    struct Answer {
        QMessageBox::StandardButton button;
        std::optional<std::string> name;
        std::optional<Qt::Key> key = std::nullopt;
    };

    void look() {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr || box == answered_) return;
        answered_ = box;
        if (auto* message = qobject_cast<QMessageBox*>(box)) answer(*message);
        if (auto* input = qobject_cast<QInputDialog*>(box)) answer(*input);
        answered_ = nullptr;
    }

    std::optional<Answer> next() {
        if (planned_.empty()) {
            ++surprises;
            return std::nullopt;
        }
        Answer answer = planned_.front();
        planned_.pop_front();
        return answer;
    }

    void answer(QMessageBox& box) {
        texts.push_back(box.text().toStdString());
        const auto planned = next();
        if (planned && planned->key) return QTest::keyClick(&box, *planned->key);
        QAbstractButton* button = planned ? box.button(planned->button) : nullptr;
        if (button != nullptr) button->click();
        else box.reject();
    }

    void answer(QInputDialog& box) {
        texts.push_back(box.textValue().toStdString());
        const auto planned = next();
        if (!planned || !planned->name) return box.reject();
        box.setTextValue(QString::fromStdString(*planned->name));
        box.accept();
    }

    QTimer clock_;
    std::deque<Answer> planned_;
    QWidget* answered_ = nullptr;
};

#endif
