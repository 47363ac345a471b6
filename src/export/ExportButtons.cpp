#include "export/ExportButtons.h"

#include "export/ExportFormat.h"
#include "export/LiveSnapshot.h"
#include "shell/Instrument.h"

namespace tessaly {

ExportButtons::ExportButtons(Instrument& live, Threading threading, std::string soundFont)
    : live_(live), threading_(threading), soundFont_(std::move(soundFont)) {
    live_.form1.DCYP.onClick = [this] { DCYP_Click(); };
    live_.editor.exportSong = [this] { DCBJ_Click(); };
}

ExportButtons::~ExportButtons() {
    live_.editor.exportSong = nullptr;
    live_.form1.DCYP.onClick = nullptr;
    live_.platform.loop.stopTimer(*this);
    cancel_ = true;
    if (job_.valid()) job_.wait();
}

std::optional<std::string> ExportButtons::chooseOutput(const std::string& suggestedName) {
    int type = -1;
    std::optional<std::string> chosen =
        live_.dialogs.saveFileOfType(kExportFilter, live_.state.AppDir + "演奏记录", type, suggestedName);
    if (!chosen) return std::nullopt;
    return withExportExtension(*chosen, type);
}

void ExportButtons::DCYP_Click() {
    if (busy()) return;
    std::optional<std::string> output = chooseOutput(suggestedExportName(live_.state.FilePathInUse, "乐谱"));
    if (!output) return;
    ExportRequest request;
    request.live = snapshotScore(live_);
    request.output = *output;
    begin(std::move(request), "乐谱");
}

void ExportButtons::DCBJ_Click() {
    if (busy()) return;
    std::optional<std::string> output = chooseOutput(suggestedExportName(live_.editor.s.EditFilePath, "乐曲"));
    if (!output) return;
    ExportRequest request;
    request.live = snapshotSong(live_);
    request.output = *output;
    begin(std::move(request), "乐曲");
}

void ExportButtons::begin(ExportRequest request, const char* what) {
    request.dataFolder = live_.appDir();
    request.shippedData = live_.shippedData();
    request.soundFont = soundFont_;
    doneText_ = std::string("成功导出") + what + "。。。";
    live_.form1.FJWZ.setCaption(std::string("正在导出") + what + "。。。");
    live_.form1.DCYP.setEnabled(false);
    cancel_ = false;
    if (threading_ == Threading::Worker) {
        job_ = std::async(std::launch::async, [this, request] { return runExport(request, {}, &cancel_); });
    } else {
        std::promise<ExportResult> done;
        done.set_value(runExport(request, {}, &cancel_));
        job_ = done.get_future();
    }
    live_.platform.loop.startTimer(*this, kPollMs);
}

void ExportButtons::timerDue() {
    if (!job_.valid() || job_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
    live_.platform.loop.stopTimer(*this);
    const ExportResult result = job_.get();
    live_.form1.DCYP.setEnabled(true);
    if (result.ok) {
        live_.form1.FJWZ.setCaption(doneText_);
        return;
    }
    live_.form1.FJWZ.setCaption("导出失败。。。");
    live_.platform.boxes.timedBox("提示", result.message, 5000);
}

}  // namespace tessaly
