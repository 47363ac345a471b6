#pragma once
#include <string>

#include "export/PlayCapture.h"

namespace tessaly {

class RenderProgram;

// A score file played as the user plays one: opened with "打开" from the
// scores folder of the render program's data folder, where it is copied
// first, so that its JP commands find the rhythm files there.
PlayStart scoreFilePlay(RenderProgram& program, const std::string& path);

// An edit file played as the user plays one: the editor opened, the file
// opened with "打开编辑", and the song played with "从开始处启动".
PlayStart editFilePlay(RenderProgram& program, const std::string& path);

// The play of a score text from the score box: "试听".
PlayStart scoreTextPlay(RenderProgram& program, const std::string& text);

// The play of the song in the editor: "从开始处启动" (the editor must be open).
PlayStart editorSongPlay(RenderProgram& program);

}  // namespace tessaly
