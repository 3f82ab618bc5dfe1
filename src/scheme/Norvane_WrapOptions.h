#ifndef KERFLINE_NORVANE_WRAPOPTIONS_H
#define KERFLINE_NORVANE_WRAPOPTIONS_H

#include "src/scheme/Norvane_OptionalString.h"
#include "src/scheme/Norvane_PropertySet.h"

namespace Norvane {

/// How the passes that break lines read a scheme: an option that is absent, or of another kind than
/// it should be, has its default.
bool wrapBool(const PropertySet& scheme, const char* name);
int wrapInt(const PropertySet& scheme, const char* name, int absent);
/// A style value from 0 to 2; any other counts as `outOfRange`.
int wrapStyleValue(const PropertySet& scheme, const char* name, int absent, int outOfRange);
OptionalString wrapString(const PropertySet& scheme, const char* name);
/// An indent. One that holds more than blanks and tabs is not set: it would become code at the
/// start of every new line.
OptionalString wrapIndentValue(const PropertySet& scheme, const char* name);

} // namespace Norvane

#endif
