#ifndef KERFLINE_TESTS_FAKEFACE_H
#define KERFLINE_TESTS_FAKEFACE_H

#include "ui/NorvaneUI_DialogFace.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A user who answers as the test says, and windows that remember what they showed.
class FakeFace : public NorvaneUI::DialogFace {
public:
    using Lines = std::vector<std::string>;

    void notify(const std::string& text) override { notices.push_back(text); }
    NorvaneUI::Answer ask(const std::string& text) override {
        questions.push_back(text);
        if (onAsk) onAsk();
        return next(answers, NorvaneUI::Answer::cancel);
    }
    std::optional<std::string> askSchemeName(const std::string& proposal) override {
        proposals.push_back(proposal);
        return next(names, std::optional<std::string>());
    }
    std::optional<std::string> chooseFile() override { return file; }
    void setFocus(std::string_view control) override { focus = control; }

    // What the user does. Without an answer that is left, the user cancels.
    std::deque<NorvaneUI::Answer> answers;
    std::deque<std::optional<std::string>> names;
    std::optional<std::string> file;
    /// Called while a question is open.
    std::function<void()> onAsk;

    // What was shown.
    Lines notices;
    Lines questions;
    Lines proposals;
    std::string focus;

private:
    template <class Value> static Value next(std::deque<Value>& values, Value otherwise) {
        if (values.empty()) return otherwise;
        Value value = values.front();
        values.pop_front();
        return value;
    }
};

#endif
