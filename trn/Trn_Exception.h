#ifndef KERFLINE_TRN_EXCEPTION_H
#define KERFLINE_TRN_EXCEPTION_H

#include <string>

namespace Trn {

/// Base of everything that the engine throws on its own account: programming errors and input that
/// cannot occur. Faulty source text is no exception, it is reported in a MessageList.
class Exception {
public:
    explicit Exception(const char* message) : message_(message) {}
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
    virtual ~Exception() = default;

    virtual std::string message() const { return message_; }

private:
    std::string message_;
};

/// A token was asked for a value of a kind that it does not hold.
class InvalidValueType : public Exception {
public:
    InvalidValueType() : Exception("Invalid value() function called for Token object.") {}
};

/// An object was added to a collection that holds it already.
class AlreadyExistsException : public virtual Exception {
public:
    AlreadyExistsException()
        : Exception("Attempt to add an object to a collection that already exists in that collection.") {}
};

/// A parameter has a value that the operation cannot work with.
class InvalidParameterException : public virtual Exception {
public:
    // The spelling is what callers compare with, so it stays.
    InvalidParameterException() : Exception("InvalidParameterExecption") {}
};

} // namespace Trn

#endif
