#include "TakeSavingStatus.h"

#include <vector>

#include "forms/MainWindow.h"
#include "platform/audio/MciDevice.h"

namespace tessaly {

void showTakeSaving(audio::MciDevice& recorder, MainWindow& form) {
    recorder.onSaving = [&form, enabled = std::vector<bool>()](bool saving) mutable {
        MainRecorderPanel& panel = form.recorderPanel;
        const std::vector<Control*> controls = {&panel.Image1[0], &panel.Image1[1], &panel.Image1[2], &panel.BcLY};
        if (saving) {
            enabled.clear();
            for (Control* c : controls) {
                enabled.push_back(c->enabled());
                c->setEnabled(false);
            }
            form.FJWZ.setCaption("正在保存录音。。。");
            return;
        }
        // As they were: the save's own steps set what changes.
        for (std::size_t i = 0; i < controls.size() && i < enabled.size(); ++i) controls[i]->setEnabled(enabled[i]);
    };
}

}  // namespace tessaly
