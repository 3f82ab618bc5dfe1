#ifndef KERFLINE_NORVANEUI_FAILURE_H
#define KERFLINE_NORVANEUI_FAILURE_H

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace NorvaneUI {

/// Why something that was asked of the world outside was not done.
enum class FailureKind {
    /// What a handle stood for is no longer there.
    gone,
    denied,
    missing,
    exists,
    full,
    /// Somebody else changed it since it was looked at.
    changed,
    cancelled,
    unsupported,
    other,
};

struct Failure {
    FailureKind kind = FailureKind::other;
    /// The words of the system, for a log; can be empty.
    std::string text = {};
};

/// Whether an operation was done, and why not.
class Status {
public:
    /// Done.
    Status() = default;
    Status(Failure failure) : failure_(std::move(failure)) {}

    bool isDone() const { return !failure_; }
    /// Requires: it was not done.
    const Failure& failure() const { return *failure_; }

private:
    std::optional<Failure> failure_;
};

/// A value, or the reason why there is none.
template <class Value> class Result {
public:
    Result(Value value) : content_(std::move(value)) {}
    Result(Failure failure) : content_(std::move(failure)) {}

    explicit operator bool() const { return std::holds_alternative<Value>(content_); }
    /// Requires: there is a value.
    Value& operator*() { return *std::get_if<Value>(&content_); }
    const Value& operator*() const { return *std::get_if<Value>(&content_); }
    Value* operator->() { return std::get_if<Value>(&content_); }
    const Value* operator->() const { return std::get_if<Value>(&content_); }
    /// Requires: there is no value.
    const Failure& failure() const { return *std::get_if<Failure>(&content_); }

private:
    std::variant<Value, Failure> content_;
};

} // namespace NorvaneUI

#endif
