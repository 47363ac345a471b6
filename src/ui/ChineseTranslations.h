#pragma once

namespace tessaly {

// Loads Qt's own Chinese translations (its dialogs' buttons, labels and
// columns) into the running application. False when they are not installed.
bool installChineseTranslations();

// Makes the locale Qt takes for the system Chinese, whatever the user's own;
// to be called before anything asks Qt for the system's locale.
void useChineseSystemLocale();

}  // namespace tessaly
