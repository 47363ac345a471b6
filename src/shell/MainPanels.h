#pragma once
#include <functional>
#include <map>
#include <vector>

namespace tessaly {

class MainWindow;
class TextBox;

// The tab row of the main window: which panel shows, the status texts that go
// with it, and the keyboard taking the focus back after every tab.
class MainPanels {
public:
    explicit MainPanels(MainWindow& form);

    void wire();
    void Xxk_Click(int Index);

    // What a tab does on entering, beyond showing its panel: set by the
    // subsystem that owns the panel. It runs before the keyboard takes the focus back.
    void setEntryAction(int tab, std::function<void()> action);
    // A see-through text box on a tab's panel: entering tab 1, 2 or 4 renews
    // the backdrop of its boxes.
    void addSeeThroughBox(int tab, TextBox& box);

private:
    MainWindow& form_;
    std::map<int, std::function<void()>> entryActions_;
    std::multimap<int, TextBox*> seeThroughBoxes_;
};

}  // namespace tessaly
