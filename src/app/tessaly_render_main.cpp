// tessaly-render: exports a score or an edit file as a standard MIDI file or
// as audio, played by the instrument's own player in virtual time; a score
// also as numbered notation in PDF, PNG or SVG.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>

#include <QGuiApplication>
#include <filesystem>

#include "drawing/JianpuPictures.h"
#include "export/ExportFormat.h"
#include "export/Exporter.h"
#include "jianpu/JianpuReading.h"
#include "score/ScoreFiles.h"
#include "shell/AppFolder.h"

namespace {

constexpr const char* kUsage =
    "用法：tessaly-render 输入文件 [-o 输出文件] [--soundfont SF2] [--appdir 文件夹]\n"
    "Usage: tessaly-render INPUT [-o OUTPUT] [--soundfont SF2] [--appdir DIR]\n"
    "\n"
    "把乐谱（.txt）或编辑文件（.lnk）按乐器自己的演奏导出，伴奏在内。\n"
    "Exports a score (.txt) or an edit file (.lnk) as the instrument plays it, accompaniment included.\n"
    "\n"
    "  -o 输出文件       扩展名决定格式：.mid（标准 MIDI 文件）、.wav、.flac、.mp3；\n"
    "                    乐谱还可导出为简谱：.pdf、.png、.svg；默认为输入文件同名的 .mid\n"
    "                    the extension picks the format (a score also as numbered notation:\n"
    "                    .pdf, .png, .svg); default: INPUT's name with .mid\n"
    "  --soundfont SF2   音频导出所用的 SoundFont（默认按乐器的规则查找）\n"
    "                    the SoundFont for audio (default: found as the instrument finds it)\n"
    "  --appdir 文件夹    取其中的设置、节奏文件与和弦织体（默认为乐器的数据文件夹）\n"
    "                    the data folder whose settings, rhythms and chord figures count\n"
    "  -h, --help        显示本说明 / show this help\n"
    "\n"
    "例 / example:  tessaly-render 演奏记录/小星星.txt -o 小星星.mp3\n";

struct Arguments {
    std::string input, output, soundFont, appDir;
    bool help = false;
};

// Nothing when the command line is not understood; the reason goes to error.
std::optional<Arguments> parse(int argc, char** argv, std::string& error) {
    Arguments arguments;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        auto value = [&](std::string& target) {
            if (i + 1 >= argc) {
                error = word + " 后面缺少参数";
                return false;
            }
            target = argv[++i];
            return true;
        };
        if (word == "-h" || word == "--help") arguments.help = true;
        else if (word == "-o" || word == "--output") { if (!value(arguments.output)) return std::nullopt; }
        else if (word == "--soundfont") { if (!value(arguments.soundFont)) return std::nullopt; }
        else if (word == "--appdir") { if (!value(arguments.appDir)) return std::nullopt; }
        else if (word.size() > 1 && word[0] == '-') { error = "不认识的选项：" + word; return std::nullopt; }
        else if (arguments.input.empty()) arguments.input = word;
        else { error = "只能导出一个输入文件：" + word; return std::nullopt; }
    }
    if (!arguments.help && arguments.input.empty()) {
        error = "缺少输入文件";
        return std::nullopt;
    }
    return arguments;
}

std::string clock(uint32_t ms) {
    char text[32];
    std::snprintf(text, sizeof text, "%u:%02u", ms / 60000, ms / 1000 % 60);
    return text;
}

// One line on a terminal, rewritten in place at most ten times a second.
class ProgressLine {
public:
    ProgressLine() : shown_(isatty(STDERR_FILENO) == 1) {}
    ~ProgressLine() { finish(); }
    void operator()(tessaly::ExportStage stage, uint32_t done, uint32_t total) {
        if (!shown_) return;
        const auto now = std::chrono::steady_clock::now();
        if (now - last_ < std::chrono::milliseconds(100)) return;
        last_ = now;
        std::string text = stage == tessaly::ExportStage::Playing
                               ? "演奏中 " + clock(done)
                               : "合成音频 " + std::to_string(total ? 100ull * done / total : 100) + "%";
        std::cerr << "\r" << text << "\033[K" << std::flush;
        written_ = true;
    }
    void finish() {
        if (written_) std::cerr << "\r\033[K" << std::flush;
        written_ = false;
    }

private:
    bool shown_;
    bool written_ = false;
    std::chrono::steady_clock::time_point last_{};
};

// The score as numbered notation, in 1=C, 4/4 and tempo 70 unless it says
// otherwise at its start.
int renderJianpu(int argc, char** argv, const std::string& input, const std::string& output) {
    std::string extension = std::filesystem::path(input).extension().string();
    if (extension != ".txt" && extension != ".TXT") {
        std::cerr << "tessaly-render：简谱只能从乐谱（.txt）导出：" << input << "\n";
        return 1;
    }
    int error = 0;
    std::optional<std::string> score = tessaly::readScoreFile(input, &error);
    if (!score) {
        std::cerr << "tessaly-render：无法读取乐谱：" << input << "\n";
        return 1;
    }
    // Fonts and painting need an application object, not a screen.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QGuiApplication application(argc, argv);
    const tessaly::JianpuReading reading = tessaly::readJianpu(*score, tessaly::JianpuStart{});
    const std::string title = std::filesystem::path(input).stem().string();
    const std::string failure = tessaly::writeJianpuPicture(output, reading, title);
    if (!failure.empty()) {
        std::cerr << "tessaly-render：" << failure << "\n";
        return 1;
    }
    std::cout << "已导出简谱 " << output << "\n";
    if (reading.error) std::cerr << "注意：第 " << reading.error->from + 1 << " 个字符：" << reading.error->message << "\n";
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::string error;
    std::optional<Arguments> arguments = parse(argc, argv, error);
    if (!arguments) {
        std::cerr << "tessaly-render：" << error << "\n\n" << kUsage;
        return 2;
    }
    if (arguments->help) {
        std::cout << kUsage;
        return 0;
    }
    if (tessaly::isJianpuPicturePath(arguments->output))
        return renderJianpu(argc, argv, arguments->input, arguments->output);
    tessaly::ExportRequest request;
    request.input = arguments->input;
    request.output = arguments->output.empty() ? tessaly::defaultExportPath(arguments->input) : arguments->output;
    request.soundFont = arguments->soundFont;
    request.dataFolder = arguments->appDir.empty() ? tessaly::appFolderFromEnvironment() : arguments->appDir;
    request.shippedData = tessaly::shippedDataFolder(TESSALY_BUILD_DATA_DIR);

    ProgressLine progress;
    const tessaly::ExportResult result = tessaly::runExport(
        request, [&progress](tessaly::ExportStage stage, uint32_t done, uint32_t total) { progress(stage, done, total); });
    progress.finish();
    if (!result.ok) {
        std::cerr << "tessaly-render：" << result.message << "\n";
        return 1;
    }
    std::cout << "已导出 " << request.output << "（" << clock(result.playedMs) << "，" << result.notes << " 个音符）\n";
    return 0;
}
