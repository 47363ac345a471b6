#include "forms/EditorWindow.h"

namespace tessaly {

namespace {

// Widths by time signature. The note boxes hold two characters a slot, the
// grid a box every 20 pixels with a growing gap at every beat, and the form
// grows by as much as the grid does.
struct SignatureWidths {
    int noteBox, picture1, form;
};
constexpr SignatureWidths kWidths[3] = {{325, 465, 789}, {486, 490, 814}, {648, 652, 976}};
constexpr int kPictureGap = 12;

}  // namespace

EditorWindow::EditorWindow(ControlSystem& system, EventLoop& loop) : Form(system, loop, "YYBJ") {
    makeControls();
}

EditorWindow::~EditorWindow() = default;

void EditorWindow::makeControls() {
    recorder_.reset();
    commands_.reset();
    settings_.reset();
    bar_.reset();
    removeAllControls();
    setCaption("音乐编辑器");
    setGeometry({0, 0, kWidths[0].form, kEditorFormHeight});
    bar_ = std::make_unique<EditorBarPanel>(*this);
    settings_ = std::make_unique<EditorSettingsPanel>(*this);
    commands_ = std::make_unique<EditorCommandPanel>(*this);
    recorder_ = std::make_unique<EditorRecorderPanel>(*this);
}

void EditorWindow::fitToTimeSignature(int index) {
    if (index < 0 || index > 2) return;
    const SignatureWidths& w = kWidths[index];
    for (auto& [t, box] : bar_->YF1) {
        Geometry g = box->geometry();
        g.width = w.noteBox;
        box->setGeometry(g);
    }
    Geometry picture = bar_->Picture1.geometry();
    picture.width = w.picture1;
    bar_->Picture1.setGeometry(picture);
    Geometry form = geometry();
    form.width = w.form;
    setGeometry(form);
}

void EditorWindow::placePicture3() {
    const Geometry& picture1 = bar_->Picture1.geometry();
    Geometry picture3 = settings_->Picture3.geometry();
    picture3.left = picture1.left + picture1.width + kPictureGap;
    settings_->Picture3.setGeometry(picture3);
}

}  // namespace tessaly
