#include "jianpu/JianpuPanel.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "forms/JianpuWindow.h"
#include "forms/MainWindow.h"
#include "forms/ScoreEntryWindow.h"
#include "jianpu/JianpuOutput.h"
#include "jianpu/JianpuText.h"
#include "platform/Dialogs.h"
#include "runtime/Text.h"
#include "runtime/TextFiles.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

const char* const kTextFilter = "简谱文本|*.txt";
const char* const kPictureFilter = "PNG 图片|*.png|SVG 图片|*.svg|PDF 文件|*.pdf";
const char* const kPictureExtensions[] = {".png", ".svg", ".pdf"};

bool isPlaying(const MainWindow& form) { return form.Yuepu[0].caption() == "停止"; }

std::string withExtension(std::string path, int chosenType) {
    std::string extension = std::filesystem::path(path).extension().string();
    for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (const char* known : kPictureExtensions)
        if (extension == known) return path;
    return path + kPictureExtensions[chosenType >= 0 && chosenType < 3 ? chosenType : 0];
}

}  // namespace

JianpuPanel::JianpuPanel(SharedState& state, MainWindow& form, ScoreEntryWindow& entry, JianpuWindow& window,
                         Dialogs& dialogs)
    : state_(state), form_(form), entry_(entry), window_(window), dialogs_(dialogs), source_(&form.Text3) {}

void JianpuPanel::wire() {
    form_.JIANPU.onClick = [this] { JIANPU_Click(form_.Text3); };
    entry_.JIANPU.onClick = [this] { JIANPU_Click(entry_.Text1); };
    window_.DaYin.onClick = [this] { DaYin_Click(); };
    window_.BCTP.onClick = [this] { BCTP_Click(); };
    window_.DCWB.onClick = [this] { DCWB_Click(); };

    auto follow = [this](Control& control, std::initializer_list<Prop> props) {
        std::vector<Prop> watched(props);
        control.observe([this, watched](Control&, Prop prop) {
            if (std::find(watched.begin(), watched.end(), prop) != watched.end()) refresh();
        });
    };
    // Play sets the caption before it reads the first command.
    form_.Yuepu[0].observe([this](Control&, Prop prop) {
        if (prop != Prop::Caption) return;
        if (!isPlaying(form_)) startOfPlay_.reset();
        else if (!startOfPlay_) startOfPlay_ = startInForce();
    });
    follow(form_.Text3, {Prop::Text, Prop::Selection});
    follow(entry_.Text1, {Prop::Text});
    follow(form_.Yuepu[0], {Prop::Caption});
    follow(form_.YD, {Prop::ListIndex});
    follow(form_.SD, {Prop::Text, Prop::ListIndex});
    for (auto& [index, option] : form_.rhythmPage.Option1) follow(*option, {Prop::Value});
    follow(window_, {Prop::Visible});
}

void JianpuPanel::JIANPU_Click(TextBox& source) {
    source_ = &source;
    window_.show();
    refresh();
}

void JianpuPanel::setWidth(float em) {
    if (em == width_) return;
    width_ = em;
    refresh();
}

JianpuStart JianpuPanel::startInForce() const {
    JianpuStart start;
    start.keyIndex = std::max(form_.YD.listIndex(), 0);
    const double tempo = numericValue(form_.SD.text());
    start.tempo = tempo > 0 ? static_cast<int>(tempo) : 70;
    for (auto& [index, option] : form_.rhythmPage.Option1)
        if (option->value()) start.beatsPerBar = static_cast<int>(index) + 2;
    return start;
}

std::string_view JianpuPanel::sourceText() {
    const std::string& text = source_->text();
    if (text.find_first_of("\r\n") == std::string::npos) return text;
    // A score typed in lines is read as its file will be, the lines joined.
    joined_.clear();
    joined_.reserve(text.size());
    for (char c : text)
        if (c != '\r' && c != '\n') joined_ += c;
    return joined_;
}

std::string JianpuPanel::title() const {
    if (source_ == &entry_.Text1) return entry_.WJMC.text().empty() ? "乐谱" : entry_.WJMC.text();
    if (state_.FilePathInUse.empty()) return "乐谱";
    return std::filesystem::path(state_.FilePathInUse).stem().string();
}

void JianpuPanel::refresh() {
    // A hidden window has nothing to keep up to date; showing it catches up.
    if (!window_.visible()) return;
    JianpuLayoutOptions options;
    options.width = width_;
    const bool playing = source_ == &form_.Text3 && isPlaying(form_);
    const JianpuLayout& layout =
        sheet_.update(sourceText(), playing && startOfPlay_ ? *startOfPlay_ : startInForce(), options);
    playingEvent_ = playing ? sheet_.eventAt(static_cast<int>(form_.Text3.selStart())) : -1;

    window_.CWTS.setCaption(layout.errorMessage);
    std::string status = "共 " + std::to_string(layout.barCount) + " 小节";
    if (playingEvent_ >= 0) status += "，正在演奏第 " + std::to_string(sheet_.reading().events[playingEvent_].from + 1) + " 个字符处的音符";
    window_.ZTXX.setCaption(status);
    if (onChanged) onChanged();
}

void JianpuPanel::DCWB_Click() {
    std::optional<std::string> path = dialogs_.saveFile(kTextFilter, state_.AppDir + "演奏记录");
    if (!path || path->empty()) return;
    std::string name = *path;
    if (std::filesystem::path(name).extension().empty()) name += ".txt";
    std::string text = jianpuText(sheet_.reading());
    // Our text files end their lines with CR LF.
    std::string lines;
    for (char c : text) {
        if (c == '\n') lines += '\r';
        lines += c;
    }
    window_.ZTXX.setCaption(replaceFile(name, lines) ? "简谱文本已保存：" + name : "无法写入文件：" + name);
}

void JianpuPanel::BCTP_Click() {
    if (!output_) {
        window_.ZTXX.setCaption("这里不能保存图片。");
        return;
    }
    int chosenType = -1;
    std::optional<std::string> path = dialogs_.saveFileOfType(kPictureFilter, state_.AppDir + "演奏记录", chosenType, title());
    if (!path || path->empty()) return;
    const std::string name = withExtension(*path, chosenType);
    const std::string failure = output_->writePicture(name, sheet_.reading(), title());
    window_.ZTXX.setCaption(failure.empty() ? "简谱图片已保存：" + name : failure);
}

void JianpuPanel::DaYin_Click() {
    if (!output_) {
        window_.ZTXX.setCaption("这里不能打印。");
        return;
    }
    bool cancelled = false;
    const std::string failure = output_->print(sheet_.reading(), title(), cancelled);
    if (!cancelled) window_.ZTXX.setCaption(failure.empty() ? "简谱已送去打印。" : failure);
}

}  // namespace tessaly
