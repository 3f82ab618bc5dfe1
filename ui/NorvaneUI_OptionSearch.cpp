#include "ui/NorvaneUI_OptionSearch.h"

#include <algorithm>
#include <string>

namespace NorvaneUI {

namespace {

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

std::vector<std::string> wordsOf(std::string_view text) {
    constexpr std::string_view blanks = " \t\n";
    std::vector<std::string> words;
    for (;;) {
        const std::size_t start = text.find_first_not_of(blanks);
        if (start == std::string_view::npos) return words;
        text.remove_prefix(start);
        const std::size_t length = std::min(text.find_first_of(blanks), text.size());
        words.push_back(lowered(text.substr(0, length)));
        text.remove_prefix(length);
    }
}

bool holdsAll(const std::string& text, const std::vector<std::string>& words) {
    return std::all_of(words.begin(), words.end(),
                       [&](const std::string& word) { return text.find(word) != std::string::npos; });
}

std::vector<SearchHit> optionsInOrderOfPages() {
    std::vector<SearchHit> all;
    const auto add = [&](std::string_view name, const PageInfo* page) {
        const Norvane::PropertyInfo* info = Norvane::findProperty(name);
        if (info != nullptr) all.push_back({info, page});
    };
    for (const PageInfo& page : pageTable()) {
        add(page.useGlobalSettingsKey, &page);
        add(page.doNotFormatKey, &page);
        for (const PageOption& option : page.options) add(option.name, &page);
    }
    for (const std::string_view name : optionsWithoutControl()) add(name, nullptr);
    return all;
}

} // namespace

std::vector<SearchHit> searchOptions(std::string_view text) {
    const std::vector<std::string> words = wordsOf(text);
    if (words.empty()) return {};
    std::vector<SearchHit> byName;
    std::vector<SearchHit> byExplanation;
    for (const SearchHit& hit : optionsInOrderOfPages()) {
        const std::string names = lowered(hit.option->label) + '\n' + lowered(hit.option->name);
        const std::string all = names + '\n' + lowered(hit.option->description);
        if (holdsAll(names, words)) byName.push_back(hit);
        else if (holdsAll(all, words)) byExplanation.push_back(hit);
    }
    byName.insert(byName.end(), byExplanation.begin(), byExplanation.end());
    return byName;
}

} // namespace NorvaneUI
