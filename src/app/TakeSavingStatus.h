#pragma once

namespace tessaly {

class MainWindow;
namespace audio {
class MciDevice;
}

// While the recorder writes a take (on a worker; the windows go on), the main
// window's recorder controls rest and its status line says so. What the save
// shows when the file is complete follows as the recorder's handler goes on.
void showTakeSaving(audio::MciDevice& recorder, MainWindow& form);

}  // namespace tessaly
