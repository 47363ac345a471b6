#include "forms/HelpPage.h"

#include "forms/MainWindow.h"
#include "shell/HelpTopics.h"

namespace tessaly {

HelpPage::HelpPage(MainWindow& form) : Text1(form.add<TextBox>("Text1")) {
    for (int i = 0; i < kHelpTopicCount; ++i)
        form.addElement(Option2, "Option2", i, "Option2").setCaption(kHelpTopics[i].caption);
}

}  // namespace tessaly
