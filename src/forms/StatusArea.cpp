#include "forms/StatusArea.h"

#include "forms/MainWindow.h"

namespace tessaly {

StatusArea::StatusArea(MainWindow& form)
    : SjXs(form.add<Label>("SjXs")),
      Label8(form.add<Label>("Label8")),
      Label3(form.add<Label>("Label3")),
      Picture2(form.add<PictureBox>("Picture2")),
      Image3(form.add<PictureBox>("Image3")) {
    form.setGeometry({0, 0, kFullWidth, kFullHeight});
    Label3.setCaption(kKeyMapFoldedHint);
    Picture2.setGeometry(kKeyMapFolded);
    Image3.setGeometry({0, 0, kKeyMapFolded.width, kKeyMapFolded.height});
    Image3.setPicture(kKeyMapPicture);
    Image3.setToolTip(kKeyMapFoldedHint);

    form.addElement(Command2, "Command2", 0).setCaption("效果欣赏");
    Button& download = form.addElement(Command2, "Command2", 1);
    download.setCaption("音源下载");
    download.setToolTip("点击我去下载可以替换的系统音源！");
}

}  // namespace tessaly
