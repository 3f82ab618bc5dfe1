#ifndef KERFLINE_NORVANEQT_FACE_H
#define KERFLINE_NORVANEQT_FACE_H

#include "ui/NorvaneUI_DialogFace.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

class QWidget;

namespace NorvaneQt {

/// Questions and notices as boxes in front of a window.
class Face : public NorvaneUI::DialogFace {
public:
    using FocusAction = std::function<void(std::string_view)>;

    /// Before there is a window, the boxes stand alone. It is not owned.
    void setWindow(QWidget* window) { window_ = window; }
    void setFocusAction(FocusAction action) { focusAction_ = std::move(action); }

    void notify(const std::string& text) override;
    NorvaneUI::Answer ask(const std::string& text) override;
    std::optional<std::string> askSchemeName(const std::string& proposal) override;
    std::optional<std::string> chooseFile() override;
    void setFocus(std::string_view control) override;

    /// A box is open, so what happens to the window behind it is not the doing of the user.
    bool isAsking() const { return asking_ > 0; }

private:
    QWidget* window_ = nullptr;
    FocusAction focusAction_;
    int asking_ = 0;
};

} // namespace NorvaneQt

#endif
