#include "streams/Zelmar_Columns.h"

#include <algorithm>

namespace Zelmar {

namespace {

int charWidth(char c, int column, int tabSize) {
    return c == '\t' ? tabSize - column % tabSize : 1;
}

std::string spaces(int count) {
    return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

std::string tabs(int count) {
    return std::string(static_cast<std::size_t>(count), '\t');
}

std::string fillFromColumnZero(int wsMode, int tabSize, int width) {
    switch (wsMode) {
    case kWsKeep:
    case kWsTabsToSpaces: return spaces(width);
    case kWsSpacesToTabs: return tabs(width / tabSize) + spaces(width % tabSize);
    default: return std::string();
    }
}

std::string tabbedFillBehind(int column, int tabSize, int width) {
    int lead = 0;
    if (const int over = column % tabSize; over > 0) {
        const int toTabStop = tabSize - over;
        // Short of the next tab stop nothing is added at all: callers build on the shorter result.
        if (width < toTabStop) return std::string();
        lead = toTabStop;
        width -= toTabStop;
    }
    return spaces(lead) + tabs(width / tabSize) + spaces(width % tabSize);
}

} // namespace

int textColumn(std::string_view text, int startColumn, int tabSize) {
    if (tabSize < 1 || startColumn < 0) return static_cast<int>(text.size());
    int column = startColumn;
    for (const char c : text) column += charWidth(c, column, tabSize);
    return column;
}

int textColumnBack(std::string_view text, int endColumn, int tabSize) {
    if (tabSize < 1 || endColumn <= 0) return 0;
    int column = endColumn;
    for (auto c = text.rbegin(); c != text.rend() && column > 0; ++c) {
        column -= charWidth(*c, column, tabSize);
    }
    return std::max(column, 0);
}

int roundUpToMultiple(int value, int base) {
    if (value == 0 || base < 1) return value;
    return (value / base + (value % base != 0 ? 1 : 0)) * base;
}

bool isMultipleOf(int value, int base) {
    return value == 0 || base < 1 || value % base == 0;
}

int columnsBetween(const Trn::Position& from, const Trn::Position& to) {
    if (from.line != to.line) return 0;
    return static_cast<int>(to.column) - static_cast<int>(from.column);
}

std::string makeIndent(std::string_view indent, int wsMode, int tabSize, int width) {
    if (width <= 0) return std::string();
    const int tab = std::max(tabSize, 1);
    const int indentWidth = textColumn(indent, 0, tab);
    if (width == indentWidth) return std::string(indent);
    if (width < indentWidth) return fillFromColumnZero(wsMode, tab, width);
    switch (wsMode) {
    case kWsKeep:
    case kWsTabsToSpaces: return std::string(indent) + spaces(width - indentWidth);
    case kWsSpacesToTabs:
        return std::string(indent) + tabbedFillBehind(indentWidth, tab, width - indentWidth);
    default: return std::string();
    }
}

} // namespace Zelmar
