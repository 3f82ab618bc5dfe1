#include "files/NorvaneUI_Text.h"

namespace NorvaneUI {

std::string filled(std::string_view format, std::initializer_list<std::string_view> values) {
    constexpr std::string_view placeholder = "%s";
    std::string result;
    for (const std::string_view value : values) {
        const std::size_t at = format.find(placeholder);
        if (at == std::string_view::npos) break;
        result.append(format.substr(0, at)).append(value);
        format.remove_prefix(at + placeholder.size());
    }
    return result.append(format);
}

} // namespace NorvaneUI
