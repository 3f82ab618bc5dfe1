#include "help/Help_OptionEntry.h"

#include <array>

namespace Help {

namespace {

using Norvane::PropertyInfo;
using Norvane::PropertyKind;

/// Options of which more is to be said than that a place keeps what it has.
struct Absence {
    std::string_view name;
    std::string_view words;
};

constexpr auto kAbsences = std::to_array<Absence>({
    {"ALIGN_PPD_LEFT_MOST", "each directive keeps its column"},
    {"LEFT_MARGIN", "lines outside of all braces keep their indentation"},
    {"LINE_WRAP_DO_NOT_FORMAT", "nothing"},
    {"RIGHT_MARGIN", "as `0`: nothing is broken"},
    {"WRAP_INDENT", "no extra indent"},
    {"WS_BETWEEN_EXPR_OP_OPERANDS",
     "the place keeps the white space of the source; while LINE_WRAP is on, one blank"},
});

std::string code(std::int32_t value) { return '`' + std::to_string(value) + '`'; }

std::string choiceWords(std::span<const Norvane::PropertyChoice> choices) {
    std::string words;
    for (const Norvane::PropertyChoice& choice : choices) {
        if (!words.empty()) words += "; ";
        words += code(choice.value) + ' ' + std::string(choice.words);
    }
    return words;
}

std::string numberWords(const PropertyInfo& option) {
    constexpr std::int32_t kBeyondAnyText = 1'000'000;
    if (option.maximum >= kBeyondAnyText) return "a number from " + code(option.minimum) + " on";
    return "a number from " + code(option.minimum) + " to " + code(option.maximum);
}

/// The words that stand for `value` among the choices of the option, if they do.
std::string_view wordsOfChoice(const PropertyInfo& option, std::string_view value) {
    for (const Norvane::PropertyChoice& choice : Norvane::propertyChoices(option.name)) {
        if (std::to_string(choice.value) == value) return choice.words;
    }
    return {};
}

std::string whenNumberIsNotSet(const PropertyInfo& option) {
    std::string words = "as `" + std::string(option.defaultValue) + '`';
    const std::string_view meaning = wordsOfChoice(option, option.defaultValue);
    return meaning.empty() ? words : words.append(": ").append(meaning);
}

bool isNamePart(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'; }

} // namespace

std::string valueWords(const PropertyInfo& option) {
    const auto choices = Norvane::propertyChoices(option.name);
    if (!choices.empty()) return choiceWords(choices);
    switch (option.kind) {
    case PropertyKind::Bool: return "`1` on; `0` off";
    case PropertyKind::Int: return numberWords(option);
    case PropertyKind::WhiteSpace:
        return "the exact white space for the place: `\" \"` is one blank, `\"\\n\"` a new line, "
               "`\"\\t\"` a tab, "
            "`\"\"` nothing";
    case PropertyKind::Indent:
        return "blanks or tabs: `\"    \"` is four blanks, `\"\\t\"` a tab, `\"\"` none";
    case PropertyKind::Text: break;
    }
    return "any text";
}

std::string whenNotSet(const PropertyInfo& option) {
    for (const Absence& absence : kAbsences) {
        if (absence.name == option.name) return std::string(absence.words);
    }
    switch (option.kind) {
    case PropertyKind::Bool: return "off";
    case PropertyKind::Int: return whenNumberIsNotSet(option);
    case PropertyKind::WhiteSpace:
        if (option.defaultValue != "not set") return std::string(option.defaultValue);
        return "the place keeps the white space of the source";
    case PropertyKind::Indent:
        return "lines keep the indentation of the source, moved along with what is around";
    case PropertyKind::Text: break;
    }
    return "nothing";
}

std::string withMarkedOptions(std::string_view text) {
    std::string marked;
    while (!text.empty()) {
        std::size_t end = 0;
        while (end < text.size() && isNamePart(text[end])) ++end;
        const std::string word(text.substr(0, end));
        marked += Norvane::findProperty(word) ? '`' + word + '`' : word;
        text.remove_prefix(end);
        while (!text.empty() && !isNamePart(text.front())) {
            marked += text.front();
            text.remove_prefix(1);
        }
    }
    return marked;
}

void appendOption(Document& document, const PropertyInfo& option) {
    const std::string name(option.name);
    document.blocks.push_back(Heading{2, std::string(option.label), name});
    document.blocks.push_back(Paragraph{withMarkedOptions(option.description) + '.'});
    Terms facts;
    facts.rows.emplace_back("Option", '`' + name + '`');
    facts.rows.emplace_back("Kind", std::string(Norvane::propertyKindName(option.kind)));
    facts.rows.emplace_back("Values", valueWords(option));
    if (option.formats) facts.rows.emplace_back("Not set", withMarkedOptions(whenNotSet(option)));
    document.blocks.push_back(std::move(facts));
    for (const Sample& sample : samplesOf(option.name)) document.blocks.push_back(compare(sample));
}

} // namespace Help
