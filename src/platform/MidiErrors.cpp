#include "platform/MidiErrors.h"

#include "platform/MidiPort.h"

namespace tessaly {

std::string midiErrorText(int code) {
    switch (code) {
    case kMidiOk: return "操作成功。";
    case kMidiBadDeviceId: return "找不到所选的 MIDI 输出设备，请在设备列表中重新选择。";
    case kMidiNotEnabled: return "MIDI 输出设备的驱动无法启动。";
    case kMidiAllocated: return "MIDI 输出设备正被其他程序占用，请关闭该程序后重新选择设备。";
    case kMidiInvalidHandle: return "没有打开的 MIDI 输出设备，请在设备列表中选择一个设备。";
    case kMidiNoDriver: return "系统中没有可用的 MIDI 输出功能。";
    case kMidiNoMemory: return "内存不足，无法打开 MIDI 输出设备。";
    case kMidiPortVanished: return "MIDI 输出设备已断开，请检查连接后在设备列表中重新选择。";
    case kMidiSoundFontMissing: return "内置合成器找不到音色库（.sf2 文件），请将音色库放入“音源”文件夹。";
    case kMidiSendFailed: return "MIDI 消息无法送达输出设备。";
    }
    return "MIDI 输出设备发生未知错误（代码 " + std::to_string(code) + "）。";
}

}  // namespace tessaly
