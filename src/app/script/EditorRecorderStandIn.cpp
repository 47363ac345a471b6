#include "app/script/EditorRecorderStandIn.h"

#include "shell/Instrument.h"

namespace tessaly {

EditorRecorderStandIn::EditorRecorderStandIn(Instrument& app)
    : form(app.controls, app.platform.loop, kFormName),
      panel(form),
      recorder(app.platform, app.state, app.recorderState.editor, panel, app.dialogs) {
    recorder.wire();
    form.onLoad = [this] { recorder.Form_Load(); };
    form.load();
}

}  // namespace tessaly
