#pragma once
#include "forms/Form.h"

namespace tessaly {

// Pictures of the recorder's images.
constexpr int kRecorderPlayPicture = 120;    // triangle
constexpr int kRecorderStopPicture = 121;    // square
constexpr int kRecorderRecordPicture = 122;  // circle

// The main window's recorder: the images Image1 (0 triangle, open and play;
// 1 square, stop; 2 circle, record), the save button BcLY and the elapsed
// time Label12. Its controls belong to the form it is built on.
class MainRecorderPanel {
public:
    explicit MainRecorderPanel(Form& form);

    ControlArray<PictureBox> Image1;
    Button& BcLY;
    Label& Label12;

    // An image at rest: 25 by 25. Pressed: 19 by 19, a little inward; the
    // stop image has no pressed look of its own.
    void showNormal(int index);
    void showPressed(int index);
    void showAllNormal();
};

}  // namespace tessaly
