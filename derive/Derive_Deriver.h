#ifndef KERFLINE_DERIVE_DERIVER_H
#define KERFLINE_DERIVE_DERIVER_H

#include "derive/Derive_Layouts.h"
#include "src/scheme/Norvane_PropertyCatalogue.h"
#include "src/scheme/Norvane_PropertySet.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Derive {

using Value = std::variant<bool, std::int32_t, std::string>;

void setValue(Norvane::PropertySet& scheme, std::string_view name, const Value& value);

/// A place where the code stands otherwise than an option would have it.
struct Dissent {
    std::size_t text = 0;     // index in Derivation::names
    std::uint32_t offset = 0; // of the white space in the source, in bytes
    std::uint32_t line = 1;   // both from 1, the column in bytes
    std::uint32_t column = 1;
    std::string found = {};
    std::string wanted = {};
};

/// What the code says to one option.
struct Measure {
    const Norvane::PropertyInfo* option = nullptr;
    /// The value that most places agree with.
    Value value;
    /// Where the option acts, and at how many of these the code has the value already.
    std::size_t places = 0;
    std::size_t agreeing = 0;
    /// Lines of the code that would change with the value.
    std::size_t changedLines = 0;
    /// The value is part of the scheme.
    bool isSet = false;
    /// Some of the places that disagree, in the order of the texts.
    std::vector<Dissent> dissents = {};
};

struct Derivation {
    Norvane::PropertySet scheme;
    /// One for each option that acts anywhere, in the order of the catalogue.
    std::vector<Measure> measures;
    std::vector<std::string> names;
    std::size_t bytes = 0;
    std::size_t lines = 0;
    /// Lines that the scheme as a whole changes.
    std::size_t changedLines = 0;
    /// Texts that could not be read.
    std::size_t refused = 0;
    bool isCancelled = false;
};

struct Settings {
    /// The share of places, from 0 to 1, that has to agree before an option is set.
    double agreement = 0.98;
    unsigned threads = 1;
    std::size_t mostDissents = 1000;
};

/// Told of each step: how many are done, of how many. Called on the thread that derives.
using Progress = std::function<void(std::size_t done, std::size_t all)>;

/// Finds the scheme under which `texts` change least. An option is measured by what it does: the
/// places where it acts are those where another value of it gives another layout. The same texts
/// give the same scheme. Touches no files; `cancelled` may be set by another thread.
Derivation derive(std::vector<Text> texts, const Settings& settings, const Progress& progress = {},
                  const std::atomic<bool>* cancelled = nullptr);

/// What a scheme does to some texts.
struct Effect {
    std::size_t lines = 0;
    std::size_t changedLines = 0;
    std::size_t refused = 0;
};

Effect effectOf(const Norvane::PropertySet& scheme, std::vector<Text> texts, unsigned threads);

/// The scheme as a file: what is set with its figures, what is doubtful behind "#".
std::string schemeText(const Derivation& derivation, std::string_view name);

/// "1 LINE_WRAP 1" and the like, as a scheme file has it.
std::string recordOf(std::string_view name, const Value& value);

} // namespace Derive

#endif
