#ifndef KERFLINE_NORVANEUI_PAGES_H
#define KERFLINE_NORVANEUI_PAGES_H

#include "ui/NorvaneUI_BodyBasePage.h"
#include "ui/NorvaneUI_StylesBasePage.h"

#include <memory>
#include <string>
#include <vector>

namespace NorvaneUI {

/// Values that stand for those of several constructs. An edit goes on at once to every page that
/// uses the global settings, in the same step of undo; one that takes a value away does not, since
/// no page asked for the value to go.
class GlobalsPage : public StylesBasePage {
public:
    GlobalsPage() : StylesBasePage(PageId::Globals) {}

protected:
    void exchangeValues(Exchange direction, Norvane::PropertySet& scheme) override;
};

class ClassesPage : public BodyBasePage {
public:
    ClassesPage() : BodyBasePage(PageId::Classes) {}
};

class EnumsPage : public BodyBasePage {
public:
    EnumsPage() : BodyBasePage(PageId::Enums) {}
};

class NamespacesPage : public BodyBasePage {
public:
    NamespacesPage() : BodyBasePage(PageId::Namespaces) {}
};

class FunctionsPage : public BodyBasePage {
public:
    FunctionsPage() : BodyBasePage(PageId::Functions) {}
};

class ControlStatementsPage : public BodyBasePage {
public:
    ControlStatementsPage() : BodyBasePage(PageId::ControlStatements) {}

    virtual std::string wsAfterOpenParenKey() const { return "WS_AFTER_CS_OPEN_PAREN"; }
    virtual std::string wsBeforeCloseParenKey() const { return "WS_BEFORE_CS_CLOSE_PAREN"; }
};

class DataPage : public BodyBasePage {
public:
    DataPage() : BodyBasePage(PageId::Data) {}
};

class ExpressionsPage : public StylesBasePage {
public:
    ExpressionsPage() : StylesBasePage(PageId::Expressions) {}
};

class LineWrappingPage : public StylesBasePage {
public:
    LineWrappingPage() : StylesBasePage(PageId::LineWrapping) {}
};

class MemberInitsPage : public StylesBasePage {
public:
    MemberInitsPage() : StylesBasePage(PageId::MemberInits) {}
};

class PointersRefsPage : public StylesBasePage {
public:
    PointersRefsPage() : StylesBasePage(PageId::PointersRefs) {}
};

class PreprocessorPage : public StylesBasePage {
public:
    PreprocessorPage() : StylesBasePage(PageId::Preprocessor) {}
};

class TemplatesPage : public StylesBasePage {
public:
    TemplatesPage() : StylesBasePage(PageId::Templates) {}
};

/// All of them, in the order of PageId.
std::vector<std::unique_ptr<StylesBasePage>> makePages();

} // namespace NorvaneUI

#endif
