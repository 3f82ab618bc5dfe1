#ifndef KERFLINE_BENCH_STAGES_H
#define KERFLINE_BENCH_STAGES_H

#include "src/scheme/Norvane_PropertySet.h"

#include <string>
#include <string_view>

namespace Bench {

/// A part of the program that takes a text. A run does the whole of it and keeps what it made; the
/// check says afterwards what is wrong with that, and is empty if nothing is.
class Stage {
public:
    virtual ~Stage() = default;
    virtual void run(const std::string& text) = 0;
    virtual std::string check(const std::string& text) const = 0;
};

class LexStage : public Stage {
public:
    void run(const std::string& text) override;
    std::string check(const std::string& text) const override;

private:
    std::size_t tokens_ = 0;
};

class ParseStage : public Stage {
public:
    void run(const std::string& text) override;
    std::string check(const std::string& text) const override;

private:
    std::string message_;
    std::size_t nodes_ = 0;
};

/// The comparison of a text with a result that has a blank line more.
class CheckStage : public Stage {
public:
    void run(const std::string& text) override;
    std::string check(const std::string& text) const override;

private:
    std::string_view fault_;
};

/// The whole way of a text through the program, the reading and writing of files aside.
class FormatStage : public Stage {
public:
    explicit FormatStage(Norvane::PropertySet scheme) : scheme_(std::move(scheme)) {}
    void run(const std::string& text) override;
    std::string check(const std::string& text) const override;

private:
    Norvane::PropertySet scheme_;
    std::string message_;
    std::string result_;
};

/// Reads a shipped scheme and turns wrapping at a usual margin on or off in it. Throws
/// std::runtime_error if it cannot be read.
Norvane::PropertySet shippedScheme(const std::string& name, bool wrap);

} // namespace Bench

#endif
