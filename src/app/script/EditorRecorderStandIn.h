#pragma once
#include "forms/EditorRecorderPanel.h"
#include "forms/Form.h"
#include "recorder/EditorRecorder.h"

namespace tessaly {

class Instrument;

// The editor's recorder on a form of its own, "EditorRecorderStandIn", for
// scripts to drive until the editor window holds it.
struct EditorRecorderStandIn {
    static constexpr const char* kFormName = "EditorRecorderStandIn";

    explicit EditorRecorderStandIn(Instrument& app);

    Form form;
    EditorRecorderPanel panel;
    EditorRecorder recorder;
};

}  // namespace tessaly
