#ifndef KERFLINE_NORVANEUI_STYLESBASEPAGE_H
#define KERFLINE_NORVANEUI_STYLESBASEPAGE_H

#include "ui/NorvaneUI_DialogFace.h"
#include "ui/NorvaneUI_Field.h"
#include "ui/NorvaneUI_PageTable.h"
#include "ui/NorvaneUI_SchemeEdit.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace NorvaneUI {

enum class Exchange { toControls, toScheme };

/// One page of the scheme sheet: the options of one family, as fields of a form.
///
/// A page shows a scheme and writes each edit into it at once, as one step of undo. What the user
/// has not touched is never written, so that looking at a page changes nothing. An entry that is no
/// value stays in its field, with its problem, and the scheme keeps the value from before.
class StylesBasePage {
public:
    explicit StylesBasePage(PageId id);
    StylesBasePage(const StylesBasePage&) = delete;
    StylesBasePage& operator=(const StylesBasePage&) = delete;
    virtual ~StylesBasePage() = default;

protected:
    /// Takes the values over, in one direction. To the scheme, those that the user has touched.
    virtual void exchangeValues(Exchange direction, Norvane::PropertySet& scheme);

public:
    // What tells one page from another. A page with no such key returns an empty string, or 0.
    virtual std::string previewName() const { return std::string(info_.previewName); }
    virtual std::string helpTopic() const { return std::string(info_.helpTopic); }
    virtual std::string useGlobalSettingsKey() const { return std::string(info_.useGlobalSettingsKey); }
    virtual std::string doNotFormatKey() const { return std::string(info_.doNotFormatKey); }
    /// Called when the scheme, as the page shows it, has changed.
    virtual void refreshPreview();
    virtual std::uint32_t helpContextBase() const { return info_.helpContextBase; }

    const PageInfo& info() const { return info_; }
    /// What refreshing the preview does. None at first.
    void setPreviewAction(std::function<void()> action) { previewAction_ = std::move(action); }

    /// Shows a scheme, which must outlive its being shown; null: none, and nothing can be edited.
    void show(SchemeEdit* edit);
    /// Shows the scheme again after somebody else changed it. What is no value goes.
    void reload();

    /// In the order of the page. Pointers into it last until the next operation.
    const std::vector<Field>& fields() const { return fields_; }
    /// Null if the page has no such option.
    const Field* find(std::string_view option) const;
    /// The do-not-format box.
    bool doNotFormat() const { return doNotFormat_; }
    bool useGlobalSettings() const { return useGlobalSettings_; }
    /// What the user should know before choosing the global settings: those that are not set. Empty
    /// if nothing.
    std::string globalSettingsNote() const;

    // Edits by the user. Each does nothing for an option that the page does not have or that the
    // control cannot say.
    void setDoNotFormat(bool on);
    void setUseGlobalSettings(bool on);
    /// Text with escapes, of WhiteSpace or CountAndKind.
    void typeText(std::string_view option, const std::string& typed);
    void setCount(std::string_view option, std::int32_t count, bool tabs);
    void setSwitch(std::string_view option, bool on);
    /// Of Number or Choice.
    void setNumber(std::string_view option, std::int32_t value);
    /// Takes the option out of the scheme, so that the source decides.
    void setAsInSource(std::string_view option);
    /// Gives an option that has no value the last one that it had, or one to begin with.
    void setFirstValue(std::string_view option);
    /// The user has left a field.
    void endTyping();

    /// Before the page is left. Where an entry is no value, tells the user, puts the focus there and
    /// returns false.
    bool check(DialogFace& face) const;

protected:
    /// Shows what the scheme says of one option of the page.
    void showOption(std::string_view option, const Norvane::PropertySet& scheme);
    void disable(std::string_view option);

    // What the user has touched since the last exchange.
    bool isBoxTouched() const { return boxTouched_; }
    bool isGlobalsTouched() const { return globalsTouched_; }
    const std::map<std::string_view, OptionValue>& pending() const { return pending_; }

private:
    std::size_t indexOf(std::string_view option) const;
    Field* editable(std::string_view option, std::initializer_list<ControlKind> kinds);
    void showSwitches(const Norvane::PropertySet& scheme);
    void enableFields(const Norvane::PropertySet& scheme);
    void dropEntries();
    void storeBox(Norvane::PropertySet& scheme);
    void leaveAlone(Norvane::PropertySet& scheme);
    void bringBack(Norvane::PropertySet& scheme);
    void storeGlobalChoice(Norvane::PropertySet& scheme);
    void keepOwn(const Norvane::PropertySet& scheme);
    void bringOwnBack(Norvane::PropertySet& scheme);
    void storePending(Norvane::PropertySet& scheme);
    Field* editable(std::string_view option);
    void enter(Field& field, OptionValue value, bool typing = false);
    void save(std::string_view option, bool typing = false);

    const PageInfo& info_;
    std::function<void()> previewAction_;
    // Changes with the scheme that is shown. Not owned.
    SchemeEdit* edit_ = nullptr;
    // What the controls say.
    bool doNotFormat_ = false;
    bool useGlobalSettings_ = false;
    std::vector<Field> fields_;
    /// Text as typed, which can be longer than what it stands for.
    std::map<std::string_view, std::string> typed_;
    // What the user has touched since the last exchange.
    bool boxTouched_ = false;
    bool globalsTouched_ = false;
    std::map<std::string_view, OptionValue> pending_;
    /// Those of the scheme, with what this step puts there or takes away.
    SchemeEdit::Shelves shelves_;
};

} // namespace NorvaneUI

#endif
