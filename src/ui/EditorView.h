#pragma once
#include <QPointer>
#include <QWidget>
#include <map>
#include <utility>

#include "ui/ControlBinder.h"

class QCheckBox;

namespace tessaly {

class EditorWindow;
class WindowPlacement;

// The music editor on the screen: a widget for each control of its model,
// the percussion boxes made and dropped as the model loads and unloads them.
class EditorView : public QWidget {
public:
    // With a placement the editor opens centred over the main window, else on the screen.
    explicit EditorView(EditorWindow& model, WindowPlacement* placement = nullptr);
    ~EditorView() override;

    ControlBinder& binder() { return binder_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildBar();
    void buildSettings();
    void buildCommands();
    void buildRecorder();
    void addCaption(const char* text, const QRect& place, QWidget& parent);
    void stepLoaded(int row, long index);
    void stepUnloaded(int row, long index);
    void centre();
    template <typename W>
    W& make(Control& control, QWidget& parent, const char* objectName = nullptr);

    EditorWindow& model_;
    WindowPlacement* placement_;
    ControlBinder binder_;
    QWidget* grid_ = nullptr;
    std::map<std::pair<int, long>, QPointer<QCheckBox>> steps_;
    int stepObserver_ = 0;
    int formObserver_ = 0;
};

// Keeps an editor view on the screen while the editor's window is shown: made
// when the window shows, dropped when it hides (its controls are made afresh
// at the next opening).
class EditorViewHost {
public:
    explicit EditorViewHost(EditorWindow& model);
    ~EditorViewHost();
    EditorView* view() const { return view_.data(); }
    void setPlacement(WindowPlacement* placement) { placement_ = placement; }

private:
    EditorWindow& model_;
    WindowPlacement* placement_ = nullptr;
    QPointer<EditorView> view_;
    int observer_ = 0;
};

}  // namespace tessaly
