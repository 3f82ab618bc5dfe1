#include "ui/NorvaneUI_ReadOnlyEdit.h"

namespace NorvaneUI {

PreviewJob ReadOnlyEdit::start(const Norvane::PropertySet& scheme, std::string_view source) {
    source_ = source;
    return {++newest_, scheme, source_};
}

bool ReadOnlyEdit::finish(const PreviewResult& result) {
    if (result.generation != newest_) return false;
    const bool compare = comparable_ && !isNote_ && shownSource_ == source_;
    touchedLines_ = compare ? NorvaneUI::touchedLines(text_, result.text) : std::vector<std::size_t>();
    text_ = result.text;
    messages_ = result.messages;
    shownSource_ = source_;
    isNote_ = false;
    comparable_ = true;
    return true;
}

void ReadOnlyEdit::showNote(std::string_view note) {
    ++newest_;
    text_ = note;
    isNote_ = true;
    messages_.clear();
    touchedLines_.clear();
}

} // namespace NorvaneUI
