#include "ui/NorvaneUI_Pages.h"

#include "ui/NorvaneUI_GlobalSettings.h"

#include <algorithm>

namespace NorvaneUI {

namespace {

template <class... Page> std::vector<std::unique_ptr<StylesBasePage>> makeAll() {
    std::vector<std::unique_ptr<StylesBasePage>> pages;
    (pages.push_back(std::make_unique<Page>()), ...);
    return pages;
}

bool setsGlobal(const std::pair<const std::string_view, OptionValue>& entry) {
    return entry.first.starts_with("GLOBAL_") && !std::holds_alternative<std::monostate>(entry.second);
}

} // namespace

void GlobalsPage::exchangeValues(Exchange direction, Norvane::PropertySet& scheme) {
    StylesBasePage::exchangeValues(direction, scheme);
    if (direction == Exchange::toControls || doNotFormat()) return;
    if (isBoxTouched()) refreshUsersOfGlobals(scheme, GlobalCopy::rowsThatAreSet);
    if (std::any_of(pending().begin(), pending().end(), setsGlobal)) {
        refreshUsersOfGlobals(scheme, GlobalCopy::everyRow);
    }
}

std::vector<std::unique_ptr<StylesBasePage>> makePages() {
    return makeAll<GlobalsPage, ClassesPage, EnumsPage, NamespacesPage, FunctionsPage, ControlStatementsPage,
                   DataPage, ExpressionsPage, LineWrappingPage, MemberInitsPage, PointersRefsPage,
                   PreprocessorPage, TemplatesPage>();
}

} // namespace NorvaneUI
