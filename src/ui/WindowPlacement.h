#pragma once
#include <QObject>
#include <QPointer>
#include <QRect>

class QWidget;

namespace tessaly {

// Where the windows stand. The main window comes back exactly where it stood
// before another window took its place, and that window opens centred over
// it; a window manager left to place them moves them every time.
class WindowPlacement : public QObject {
public:
    explicit WindowPlacement(QWidget& main);

    // `window` takes the main window's place while it is shown.
    void standIn(QWidget& window);
    // Centres `window` over the main window, or where it last stood.
    void centreOverMain(QWidget& window) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QRect mainArea() const;
    static void placeClientArea(QWidget& window, const QRect& area);

    QPointer<QWidget> main_;
    QRect lastMainArea_;
};

}  // namespace tessaly
