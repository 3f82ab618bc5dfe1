#ifndef KERFLINE_NORVANE_EXPRCODE_H
#define KERFLINE_NORVANE_EXPRCODE_H

#include <cstddef>
#include <optional>

namespace Norvane {

/// Tells which braces in the text of an expression hold statements, such as the body of a closure,
/// and lays these out: the expression around them does not look into them.
///
/// Places are addresses in the text that is laid out, so that a copy of it holds no code.
class ExprCode {
public:
    struct Extent {
        std::size_t number = 0; // tells one piece of code from another
        const char* head = nullptr; // what the code belongs to begins here, such as the "[" of a closure
        const char* end = nullptr;  // behind the closing brace
        bool isClosure = false; // or the braces of "requires"
        bool isApart = false; // laid out by writeCode; otherwise a part of the expression like any other
    };

    /// The code whose braces open at `brace`; nothing if these hold values.
    virtual std::optional<Extent> find(const char* brace) const = 0;
    /// The first character of the head has been written.
    virtual void noteHead(std::size_t number) = 0;
    /// The column of the line in which the head stands; below 0 if it is the brace itself.
    virtual int headColumn(std::size_t number) const = 0;
    /// Writes the code with both braces.
    virtual void writeCode(std::size_t number) = 0;

protected:
    ~ExprCode() = default;
};

} // namespace Norvane

#endif
