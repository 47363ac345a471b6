#include "shell/HelpPanel.h"

#include "forms/MainWindow.h"
#include "shell/HelpTopics.h"

namespace tessaly {

void HelpPanel::wire() {
    for (auto& [index, option] : form_.helpPage.Option2) {
        int i = static_cast<int>(index);
        option->onClick = [this, i] { Option2_Click(i); };
    }
}

void HelpPanel::Option2_Click(int Index) {
    TextBox& text = form_.helpPage.Text1;
    text.setText("");
    text.setText(helpString(kHelpTopics[Index].stringId));
}

void HelpPanel::enterHelpTab() { form_.helpPage.Option2[0].setValue(true); }

}  // namespace tessaly
