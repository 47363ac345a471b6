#include "export/Exporter.h"

#include <unistd.h>

#include <filesystem>

#include "export/AudioRendering.h"
#include "export/ExportFormat.h"
#include "export/LiveSnapshot.h"
#include "export/MidiFileWriter.h"
#include "export/PlayCapture.h"
#include "export/PlaySources.h"
#include "export/RenderProgram.h"

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

// A name beside the output that no other export uses at the same time.
std::string partPath(const std::string& output) {
    fs::path path(output);
    static std::atomic<unsigned> exports{0};
    return (path.parent_path() / ("." + path.filename().string() + "." + std::to_string(::getpid()) + "-" +
                                  std::to_string(++exports) + ".part"))
        .string();
}

}  // namespace

ExportResult runExport(const ExportRequest& request, const ExportProgress& progress,
                       const std::atomic<bool>* cancel) {
    ExportResult result;
    std::string part;
    try {
        const std::optional<ExportFormat> format = exportFormatOf(request.output);
        if (!format) throw ExportFailure("无法识别的输出格式（应为 .mid、.wav、.flac 或 .mp3）：" + request.output);
        const CapturedPlay play = capture(request, progress, cancel);
        part = partPath(request.output);
        if (*format == ExportFormat::Midi) {
            writeMidiFile(play, part, titleOf(request));
        } else {
            AudioRenderOptions options;
            options.cancel = cancel;
            if (progress)
                options.progress = [&progress](uint32_t done, uint32_t total) {
                    progress(ExportStage::Synthesizing, done, total);
                };
            renderAudioFile(play, *format, part, {request.dataFolder, request.soundFont}, options);
        }
        std::error_code error;
        fs::rename(part, request.output, error);
        if (error) throw ExportFailure("无法写入文件：" + request.output);
        result.ok = true;
        result.playedMs = play.endMs;
        result.notes = play.noteCount();
    } catch (const ExportFailure& failure) {
        result.message = failure.what();
    } catch (const std::exception& failure) {
        result.message = std::string("导出失败：") + failure.what();
    }
    if (!result.ok && !part.empty()) {
        std::error_code error;
        fs::remove(part, error);
    }
    return result;
}

}  // namespace tessaly
