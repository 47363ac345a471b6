#pragma once

namespace tessaly {

class MainWindow;

// The help panel: a topic chosen empties the box, then shows its string.
class HelpPanel {
public:
    explicit HelpPanel(MainWindow& form) : form_(form) {}

    void wire();
    void Option2_Click(int Index);
    // Entering the help tab checks the first topic (which shows it only when
    // it was not checked already).
    void enterHelpTab();

private:
    MainWindow& form_;
};

}  // namespace tessaly
