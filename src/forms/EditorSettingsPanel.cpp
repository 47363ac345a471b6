#include "forms/EditorSettingsPanel.h"

#include <string>

#include "forms/EditorBarPanel.h"

namespace tessaly {

EditorSettingsPanel::EditorSettingsPanel(Form& form)
    : Picture3(form.add<PictureBox>("Picture3")),
      DQYD(form.add<ComboBox>("DQYD")),
      DQSUDU(form.add<ComboBox>("DQSUDU")),
      HScroll3(form.add<ScrollBar>("HScroll3")),
      Label7(form.add<Label>("Label7")),
      ComDevies(form.add<ComboBox>("ComDevies")) {
    Picture3.setGeometry({547, 52, 232, 12 * kEditorRowPitch + 2});
    for (int t = 0; t < 12; ++t) {
        // The instrument lists are filled when the editor first starts.
        form.addElement(SYYQ, "SYYQ", t).setGeometry({0, editorRowTop(t), 170, 22});
        ComboBox& volume = form.addElement(YQYL, "YQYL", t);
        for (int v = 20; v <= 120; v += 10) volume.addItem(std::to_string(v));
        volume.setGeometry({176, editorRowTop(t), 56, 22});
    }
    for (const char* key : {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"}) DQYD.addItem(key);
    DQYD.setGeometry({200, 378, 58, 24});
    for (int tempo = 40; tempo <= 130; tempo += 5) DQSUDU.addItem(std::to_string(tempo));
    DQSUDU.setGeometry({300, 378, 64, 24});

    const char* signatures[3] = {"2/4", "3/4", "4/4"};
    for (int i = 0; i < 3; ++i) {
        OptionButton& option = form.addElement(JPFL, "JPFL", i, "JPFL");
        option.setCaption(signatures[i]);
        option.setGeometry({8 + i * 52, 378, 50, 24});
    }
    JPFL[0].setValue(true);

    form.addElement(Check1, "Check1", 0).setCaption("颤音");
    form.addElement(Check1, "Check1", 1).setCaption("渐强弱");
    Check1[0].setGeometry({372, 378, 58, 24});
    Check1[1].setGeometry({432, 378, 74, 24});

    HScroll3.setRange(-20, 20);
    HScroll3.setToolTip("渐强弱的深度：渐强建议用+10，渐弱建议用-3！");
    HScroll3.setGeometry({510, 380, 160, 20});
    Label7.setCaption("深度(0)");
    Label7.setGeometry({676, 378, 100, 24});
    ComDevies.setGeometry({300, 446, 226, 26});
}

}  // namespace tessaly
