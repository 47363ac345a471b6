#pragma once

namespace tessaly {

class MainWindow;

// The tab row of the main window: which panel shows, the status texts that go
// with it, and the keyboard taking the focus back after every tab.
class MainPanels {
public:
    explicit MainPanels(MainWindow& form);

    void wire();
    void Xxk_Click(int Index);

private:
    MainWindow& form_;
};

}  // namespace tessaly
