#pragma once
#include "forms/Form.h"

namespace tessaly {

class MainWindow;

// The main window's own lines and pictures outside the panels, registered
// under Form1: the clock SjXs, the running credit line Label8, the key map
// picture Picture2 with its image Image3 and the hint Label3 under it, and
// the two web buttons Command2(0..1).
class StatusArea {
public:
    explicit StatusArea(MainWindow& form);

    Label& SjXs;
    Label& Label8;
    Label& Label3;
    PictureBox& Picture2;
    PictureBox& Image3;
    ControlArray<Button> Command2;
};

// The picture of the whole key map that Image3 shows.
constexpr int kKeyMapPicture = 110;

// Where the key map stands folded (its place under the panels) and unfolded
// (over the panels and the score), in pixels of the form.
constexpr Geometry kKeyMapFolded{520, 206, 150, 48};
constexpr Geometry kKeyMapUnfolded{0, 0, 980, 204};

// The main window's full and small size, in pixels.
constexpr int kFullWidth = 986, kFullHeight = 369;
constexpr int kSmallWidth = 414, kSmallHeight = 229;

constexpr const char* kKeyMapFoldedHint = "点击图片查看键盘分布";
constexpr const char* kKeyMapUnfoldedHint = "点击图片收回键盘分布";

}  // namespace tessaly
