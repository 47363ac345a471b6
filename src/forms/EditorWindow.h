#pragma once
#include <memory>

#include "forms/EditorBarPanel.h"
#include "forms/EditorCommandPanel.h"
#include "forms/EditorRecorderPanel.h"
#include "forms/EditorSettingsPanel.h"
#include "forms/Form.h"

namespace tessaly {

// The music editor's window, YYBJ, made of its panels. The controls are made
// afresh at each opening, as designed; the song lives elsewhere and stays.
class EditorWindow : public Form {
public:
    EditorWindow(ControlSystem& system, EventLoop& loop);
    ~EditorWindow() override;

    // Throws the old controls away and makes the designed ones.
    void makeControls();

    EditorBarPanel& bar() { return *bar_; }
    EditorSettingsPanel& settings() { return *settings_; }
    EditorCommandPanel& commands() { return *commands_; }
    EditorRecorderPanel& recorder() { return *recorder_; }

    // The widths that follow the time signature (0 "2/4", 1 "3/4", 2 "4/4"):
    // the note boxes, Picture1 that holds them and the form. Other indexes
    // change nothing.
    void fitToTimeSignature(int index);
    // Picture3 stands to the right of Picture1, wherever that ends.
    void placePicture3();

private:
    std::unique_ptr<EditorBarPanel> bar_;
    std::unique_ptr<EditorSettingsPanel> settings_;
    std::unique_ptr<EditorCommandPanel> commands_;
    std::unique_ptr<EditorRecorderPanel> recorder_;
};

// The form's height; its width follows the time signature.
constexpr int kEditorFormHeight = 540;

}  // namespace tessaly
