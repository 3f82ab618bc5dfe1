#ifndef KERFLINE_DERIVE_STUDY_H
#define KERFLINE_DERIVE_STUDY_H

#include "derive/Derive_Deriver.h"
#include "derive/Derive_Layouts.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Derive {

/// Measures options under the scheme that has been found so far, the context. An option acts where
/// two values of it give two layouts, and the code agrees with a value where that layout is the
/// source. Places that break a line count as the same if they break as many; how far the line behind
/// is indented is up to the indents.
class Study {
public:
    /// Both have to outlive the study.
    Study(const Laboratory& lab, const Settings& settings);

    const Norvane::PropertySet& context() const { return context_; }
    void set(std::string_view name, const Value& value) { setValue(context_, name, value); }
    void forget(std::string_view name) { context_.erase(name); }

    /// All indents, found together: they are steps from each other. `goOn` is asked once an option.
    /// The best of them stay in the context for the measures that follow, doubtful ones too.
    std::vector<Measure> measureIndents(const std::function<bool()>& goOn);
    Measure measureSpace(const Norvane::PropertyInfo& option);
    /// Measured on texts without indents and alignment, which the option has to put back.
    Measure measureSwitch(const Norvane::PropertyInfo& option);
    /// Where "*" or "&" attaches, with the white space on that side. `mark` is "ASTERISK" or "AMPERSAND".
    std::vector<Measure> measureAnchor(std::string_view mark);
    /// How far the lines stand on which statements go on, measured on texts without indents.
    std::vector<Measure> measureFurtherLines();
    std::vector<Measure> measureMargin();
    /// Takes options out of the context that change agreed places of others.
    void dropWhatHarms(std::vector<Measure>& measures);
    /// Code that hardly changes was laid out by a tool. Options that it disagrees with anywhere are left
    /// out then, if nothing changes without them.
    void preferExact(std::vector<Measure>& measures);

    /// Source lines that `scheme` changes.
    std::size_t changedLines(const Norvane::PropertySet& scheme) const;

private:
    Norvane::PropertySet with(std::string_view name, const Value& value) const;
    void judge(Measure& measure) const;
    /// Counts a place where the option acts, and remembers the first ones that disagree.
    void takePlace(Measure& measure, bool agrees, std::size_t text, std::uint32_t offset, std::string_view found,
                   std::string_view wanted) const;
    Measure compare(const Norvane::PropertyInfo& option, const Value& value, const std::vector<Layout>& layouts,
                    const std::vector<Layout>& others) const;
    std::size_t changedLines(const std::vector<Layout>& layouts) const;

    std::vector<std::string> commonestValues(const std::vector<Layout>& probed) const;
    std::string withIndentBehindBreak(const std::string& value, const std::vector<Layout>& layouts,
                                      const std::vector<Layout>& probed) const;

    void chooseUnit();
    void improveIndent(std::string_view name);
    Measure measureIndent(const Norvane::PropertyInfo& option) const;

    const Laboratory& lab_;
    const Settings& settings_;
    Norvane::PropertySet context_;
    std::vector<std::string> spoilt_;
    std::string unit_;
    std::size_t tabSize_ = 8;
    std::size_t leastChanged_ = 0;
};

} // namespace Derive

#endif
