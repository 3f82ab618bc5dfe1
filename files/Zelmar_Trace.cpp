#include "files/Zelmar_Trace.h"

#include <atomic>
#include <iostream>

namespace Zelmar {

namespace {

struct TraceState {
    std::atomic<bool> on = false;
    std::atomic<std::ostream*> stream = &std::cerr;
};

TraceState& state() {
    static TraceState instance;
    return instance;
}

} // namespace

Trace::Trace(std::string_view name) : name_(name) { *this << name_ << ": Enter\n"; }

Trace::~Trace() {
    // A stream may be told to throw, and a destructor must not.
    try {
        *this << name_ << ": Exit\n";
    } catch (...) {
    }
}

Trace& Trace::operator<<(std::string_view text) {
    if (std::ostream* stream = isOn() ? state().stream.load() : nullptr) *stream << text;
    return *this;
}

void Trace::switchOn() { state().on = true; }

void Trace::switchOff() { state().on = false; }

bool Trace::isOn() { return state().on; }

void Trace::setStream(std::ostream* stream) { state().stream = stream; }

} // namespace Zelmar
