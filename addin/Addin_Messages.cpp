#include "addin/Addin_Messages.h"

#include "addin/Addin_Texts.h"
#include "files/NorvaneUI_Text.h"

#include <exception>
#include <new>

namespace Addin {

namespace {

using NorvaneUI::filled;
using NorvaneUI::PropertySetStore;

std::string_view severityWord(std::uint32_t severity) {
    if (severity == Trn::kSeverityError) return "error: ";
    return severity == Trn::kSeverityWarning ? "warning: " : "information: ";
}

} // namespace

bool passesThreshold(std::uint32_t severity, int threshold) {
    if (threshold == 0) return false;
    if (threshold < 0 || threshold > 3) return true;
    const bool known = severity >= Trn::kSeverityInformation && severity <= Trn::kSeverityError;
    return static_cast<int>(known ? severity : Trn::kSeverityInformation) >= threshold;
}

std::string shownText(const Message& message) {
    if (!message.isDiagnostic) return message.text;
    std::string line = message.path + '(' + std::to_string(message.position.line) + ") : ";
    line.append(severityWord(message.severity)).append("col ");
    return line + std::to_string(message.position.column) + ": " + message.text;
}

void Messages::send(const Message& message) {
    if (host_.hasMessages() && passesThreshold(message.severity, options_.messagesThreshold)) {
        host_.addMessage(message);
    }
}

void Messages::sendAndShow(const std::string& text, const std::string& path) {
    send({Trn::kSeverityError, text, path});
    host_.notify(text);
}

std::string currentExceptionText() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return std::string(Texts::kOutOfMemory);
    } catch (const PropertySetStore::ReadError& error) {
        return filled(Texts::kSchemeUnreadable, {error.path()});
    } catch (const PropertySetStore::WriteError& error) {
        const std::string folder = error.path().substr(0, error.path().rfind('/') + 1);
        return filled(Texts::kSchemeUnwritable, {error.path(), folder});
    } catch (const Trn::Exception& error) {
        return filled(Texts::kUnexpected, {error.message()});
    } catch (const std::exception& error) {
        return filled(Texts::kUnexpected, {error.what()});
    } catch (...) {
        return filled(Texts::kUnexpected, {Texts::kUnknownDetail});
    }
}

} // namespace Addin
