#ifndef KERFLINE_NORVANEUI_BODYBASEPAGE_H
#define KERFLINE_NORVANEUI_BODYBASEPAGE_H

#include "ui/NorvaneUI_StylesBasePage.h"

#include <string>

namespace NorvaneUI {

struct BodyKeys;

/// A page of a construct that has a body in braces.
class BodyBasePage : public StylesBasePage {
public:
    /// Requires: the page is one with a body.
    using StylesBasePage::StylesBasePage;

    virtual std::string wsBeforeOpenBraceKey() const;
    virtual std::string wsAfterOpenBraceKey() const;
    virtual std::string wsBeforeCloseBraceKey() const;
    virtual std::string indentContentKey() const;

protected:
    void exchangeValues(Exchange direction, Norvane::PropertySet& scheme) override;
    /// The four of the body belong to the globals page as long as the global settings are chosen.
    virtual void enableBodyControls();
    /// The four of the body, over their keys.
    virtual void exchangeBodyValues(Exchange direction, Norvane::PropertySet& scheme);

private:
    BodyKeys keys() const;
};

} // namespace NorvaneUI

#endif
