#ifndef KERFLINE_NORVANE_PROPERTYSET_H
#define KERFLINE_NORVANE_PROPERTYSET_H

#include "trn/Trn_Exception.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace Norvane {

/// Thrown by the setters and by erase for a name that is empty or holds white space.
class InvalidPropertyName : public Trn::Exception {
public:
    InvalidPropertyName() : Trn::Exception("Invalid name for a Property.") {}
    InvalidPropertyName(const InvalidPropertyName&) = default;
    InvalidPropertyName& operator=(const InvalidPropertyName&) = default;
};

/// One scheme: a named bag of options. Each option is a name with a bool, an int or a string.
///
/// An option that is not there is different from one that is false, 0 or empty, so defaults belong
/// to the reader: it sets its default into a variable and then asks, and the variable is left alone
/// if the name is absent.
///
///     int tabSize = 4;
///     scheme.getInt("TAB_SIZE", tabSize);     // 4, if the scheme says nothing
///
/// One name can stand in more than one kind, because setting one kind leaves the others alone.
/// Names are ordered by their bytes.
class PropertySet {
public:
    template <class Value> using Map = std::map<std::string, Value, std::less<>>;

    PropertySet() = default;
    explicit PropertySet(std::string name) : name_(std::move(name)) {}
    /// As default constructed and then read; see there for what `in` tells about failure.
    explicit PropertySet(std::istream& in) { read(in); }

    void swap(PropertySet& other) noexcept;

    const std::string& getName() const { return name_; }
    /// The version of the text form. Always 1.
    std::int32_t version() const { return version_; }
    /// The number of values. A name of two kinds counts twice.
    std::size_t size() const { return bools_.size() + ints_.size() + strings_.size(); }
    /// The names of all kinds.
    std::set<std::string> names() const;
    /// True if `name` has a value of any kind.
    bool exists(std::string_view name) const;

    /// Each stores the value of its kind in `value` and returns true, or returns false and leaves
    /// `value` alone.
    bool getBool(std::string_view name, bool& value) const;
    bool getInt(std::string_view name, std::int32_t& value) const;
    bool getString(std::string_view name, std::string& value) const;

    void setBool(std::string_view name, bool value);
    void setInt(std::string_view name, std::int32_t value);
    void setString(std::string_view name, std::string_view value);

    /// Removes `name` from the first of the strings, ints and bools that holds it, and returns
    /// whether one did. A name of two kinds takes two calls.
    bool erase(std::string_view name);

    /// All values of one kind, ordered by name.
    const Map<bool>& bools() const { return bools_; }
    const Map<std::int32_t>& ints() const { return ints_; }
    const Map<std::string>& strings() const { return strings_; }

    /// Reads the text form up to the end of `in`, all or nothing. Where the text is not one, the
    /// fail state of `in` is set and this set stays as it was. A bool or an int that cannot be
    /// read is skipped without a word; a string without a value is the empty one. Blank lines and those that start with "#" do not count.
    void read(std::istream& in);
    /// Writes the text form. Does nothing if `out` is not good.
    void write(std::ostream& out) const;

    /// Takes the value of one line of the text form. Returns false for a line that is none, which
    /// changes nothing.
    bool readRecord(std::string_view line);

private:
    std::string name_;
    std::int32_t version_ = 1;
    Map<bool> bools_;
    Map<std::int32_t> ints_;
    Map<std::string> strings_;
};

inline void swap(PropertySet& a, PropertySet& b) noexcept { a.swap(b); }

/// Completes a scheme so that the passes need not know what an older or hand-written one leaves
/// out: fills in the values that have a fixed default, and keeps at least one blank between a type
/// and a name. For the private copy of a pass; never for the scheme of the user.
void normalizeProperties(PropertySet& scheme);

} // namespace Norvane

#endif
