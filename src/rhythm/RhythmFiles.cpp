#include "rhythm/RhythmFiles.h"

#include "forms/MainWindow.h"
#include "platform/Platform.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {
constexpr std::size_t kShortestRhythmFile = 62;  // header and the three rows, a name of one character
}

void RhythmFiles::OpenJZwj() {
    const std::string& text = state_.RhythmFileText;
    if (charLength(text) < kShortestRhythmFile) {
        platform_.boxes.timedBox("提示", "打开节奏文件出错，请检查！", 5000);
        return;
    }
    // A header that is not hexadecimal reads as 0.
    auto volumeIndex = static_cast<int>(numericValue("&H" + charSubstr(text, 0, 2)));
    form_.VsbVol.setListIndex(volumeIndex);
}

}  // namespace tessaly
