#ifndef KERFLINE_ZELMAR_TRACE_H
#define KERFLINE_ZELMAR_TRACE_H

#include <concepts>
#include <ostream>
#include <string>
#include <string_view>

namespace Zelmar {

/// Tells a developer which functions run. While the switch is on, a scope writes
///
///     name: Enter
///     ... what it is given in between ...
///     name: Exit
///
/// to the trace stream. The switch and the stream are the program's own, so they belong to whoever
/// starts it; several threads may use scopes at once, but their lines mix.
class Trace {
public:
    explicit Trace(std::string_view name);
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;
    ~Trace();

    Trace& operator<<(std::string_view text);
    Trace& operator<<(char c) { return *this << std::string_view(&c, 1); }
    Trace& operator<<(std::same_as<bool> auto value) {
        return *this << std::string_view(value ? "true" : "false");
    }
    template <class Number>
        requires((std::integral<Number> && !std::same_as<Number, bool> && !std::same_as<Number, char>) ||
                 std::floating_point<Number>)
    Trace& operator<<(Number value) {
        return *this << std::string_view(std::to_string(value));
    }

    static void switchOn();
    static void switchOff();
    static bool isOn();
    /// Standard error at first. Null: nothing is written. Not owned.
    static void setStream(std::ostream* stream);

private:
    std::string name_;
};

} // namespace Zelmar

#endif
