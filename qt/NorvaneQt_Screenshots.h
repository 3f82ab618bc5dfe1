#ifndef KERFLINE_NORVANEQT_SCREENSHOTS_H
#define KERFLINE_NORVANEQT_SCREENSHOTS_H

class QString;

namespace NorvaneQt {

class OptionsWindow;

/// Once the window runs, writes pictures of each page and of the window at work, in two sizes and two
/// palettes, into a folder that is there, and closes the window.
void takeScreenshotsThenQuit(OptionsWindow& window, const QString& folder);

} // namespace NorvaneQt

#endif
