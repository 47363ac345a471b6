#pragma once
#include <QWidget>

namespace tessaly {

// A picture box: shows one of the program's pictures by id, and holds child
// widgets when it serves as a panel.
class PictureView : public QWidget {
public:
    explicit PictureView(QWidget* parent = nullptr);
    int pictureId() const { return pictureId_; }
    void setPictureId(int id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int pictureId_ = 0;
};

}  // namespace tessaly
