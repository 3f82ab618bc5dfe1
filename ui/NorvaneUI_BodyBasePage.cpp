#include "ui/NorvaneUI_BodyBasePage.h"

#include "ui/NorvaneUI_GlobalSettings.h"

namespace NorvaneUI {

std::string BodyBasePage::wsBeforeOpenBraceKey() const { return bodyKeysOf(info()).wsBeforeOpenBrace; }

std::string BodyBasePage::wsAfterOpenBraceKey() const { return bodyKeysOf(info()).wsAfterOpenBrace; }

std::string BodyBasePage::wsBeforeCloseBraceKey() const { return bodyKeysOf(info()).wsBeforeCloseBrace; }

std::string BodyBasePage::indentContentKey() const { return bodyKeysOf(info()).indentContent; }

BodyKeys BodyBasePage::keys() const {
    return {wsBeforeOpenBraceKey(), wsAfterOpenBraceKey(), wsBeforeCloseBraceKey(), indentContentKey()};
}

void BodyBasePage::exchangeValues(Exchange direction, Norvane::PropertySet& scheme) {
    StylesBasePage::exchangeValues(direction, scheme);
    exchangeBodyValues(direction, scheme);
    if (direction == Exchange::toControls) enableBodyControls();
}

void BodyBasePage::exchangeBodyValues(Exchange direction, Norvane::PropertySet& scheme) {
    const BodyKeys body = keys();
    if (direction == Exchange::toControls) {
        for (const std::string& key : {body.indentContent, body.wsBeforeOpenBrace, body.wsAfterOpenBrace,
                                       body.wsBeforeCloseBrace}) {
            showOption(key, scheme);
        }
    } else if (isGlobalsTouched() && useGlobalSettings() && !doNotFormat()) {
        // Now, since formatting itself looks at the options of the construct alone.
        copyBodyGlobals(scheme, body);
    }
}

void BodyBasePage::enableBodyControls() {
    if (!useGlobalSettings()) return;
    const BodyKeys body = keys();
    disable(body.indentContent);
    disable(body.wsBeforeOpenBrace);
    disable(body.wsAfterOpenBrace);
    disable(body.wsBeforeCloseBrace);
}

} // namespace NorvaneUI
