#include "qt/NorvaneQt_Text.h"

#include <QStringList>

#include <algorithm>

namespace NorvaneQt {

namespace {

const char* wordFor(char c) {
    switch (c) {
    case ' ': return "blank";
    case '\t': return "tab";
    case '\n': return "line end";
    case '\r': return "carriage return";
    case '\v': return "vertical tab";
    case '\f': return "form feed";
    default: return "other character";
    }
}

} // namespace

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string fromQt(const QString& text) { return text.toStdString(); }

QString literal(std::string_view text) { return toQt(text).replace(QLatin1Char('&'), QStringLiteral("&&")); }

QString whiteSpaceWords(std::string_view value) {
    if (value.empty()) return QStringLiteral("nothing");
    QStringList runs;
    for (auto at = value.begin(); at != value.end();) {
        const auto end = std::find_if(at, value.end(), [first = *at](char c) { return c != first; });
        const auto count = end - at;
        runs += QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(wordFor(*at)), QLatin1String(count == 1 ? "" : "s"));
        at = end;
    }
    return runs.join(QStringLiteral(", "));
}

} // namespace NorvaneQt
