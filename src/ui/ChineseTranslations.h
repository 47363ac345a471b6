#pragma once

namespace tessaly {

// Loads Qt's own Chinese translations (its dialogs' buttons, labels and
// columns) into the running application. False when they are not installed.
bool installChineseTranslations();

}  // namespace tessaly
