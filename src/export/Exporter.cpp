#include "export/Exporter.h"

#include <filesystem>

#include "export/AudioRendering.h"
#include "export/ExportFormat.h"
#include "export/LiveSnapshot.h"
#include "export/MidiFileWriter.h"
#include "export/PlayCapture.h"
#include "export/PlaySources.h"
#include "export/RenderProgram.h"
#include "runtime/FileAccess.h"

namespace tessaly {

namespace fs = std::filesystem;

namespace {

// What to play: checked before anything starts.
std::optional<ExportInput> checkedInput(const ExportRequest& request) {
    if (request.live) return std::nullopt;
    std::error_code error;
    if (!fs::is_regular_file(request.input, error)) throw ExportFailure("找不到文件：" + request.input);
    std::optional<ExportInput> input = exportInputOf(request.input);
    if (!input) throw ExportFailure("无法识别的输入文件（应为 .txt 乐谱或 .lnk 编辑文件）：" + request.input);
    return input;
}

CapturedPlay capture(const ExportRequest& request, const ExportProgress& progress, const std::atomic<bool>* cancel) {
    const std::optional<ExportInput> input = checkedInput(request);
    RenderProgram program({request.shippedData, request.dataFolder});
    PlayStart start = request.live                             ? livePlay(program, *request.live)
                      : *input == ExportInput::EditFile ? editFilePlay(program, request.input)
                                                        : scoreFilePlay(program, request.input);
    CaptureOptions options;
    options.longestPlayMs = request.longestPlayMs;
    options.cancel = cancel;
    if (progress) options.progress = [&progress](uint32_t ms) { progress(ExportStage::Playing, ms, 0); };
    return capturePlay(program, start, options);
}

std::string titleOf(const ExportRequest& request) {
    const std::string& named = request.live ? request.output : request.input;
    return fs::path(named).stem().string();
}

}  // namespace

std::string exportFailureText(const std::string& path, int error) {
    return "无法写入文件：" + path + "：" + fileErrorText(error);
}

ExportResult runExport(const ExportRequest& request, const ExportProgress& progress,
                       const std::atomic<bool>* cancel) {
    ExportResult result;
    try {
        const std::optional<ExportFormat> format = exportFormatOf(request.output);
        if (!format) throw ExportFailure("无法识别的输出格式（应为 .mid、.wav、.flac 或 .mp3）：" + request.output);
        const CapturedPlay play = capture(request, progress, cancel);
        // Each writer puts a complete file in the output's place, or leaves what was there.
        if (*format == ExportFormat::Midi) {
            writeMidiFile(play, request.output, titleOf(request));
        } else {
            AudioRenderOptions options;
            options.cancel = cancel;
            if (progress)
                options.progress = [&progress](uint32_t done, uint32_t total) {
                    progress(ExportStage::Synthesizing, done, total);
                };
            renderAudioFile(play, *format, request.output, {request.dataFolder, request.soundFont}, options);
        }
        result.ok = true;
        result.playedMs = play.endMs;
        result.notes = play.noteCount();
    } catch (const ExportFailure& failure) {
        result.message = failure.what();
    } catch (const std::exception& failure) {
        result.message = std::string("导出失败：") + failure.what();
    }
    return result;
}

}  // namespace tessaly
