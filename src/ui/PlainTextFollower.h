#pragma once
#include <QObject>
#include <string>

class QPlainTextEdit;

namespace tessaly {

class TextBox;

// Shows a multi-line text box's model in its widget, later rather than at
// once: a change of the model only marks the widget stale, and the widget
// catches up a few milliseconds after the handler that changed the model (a
// key's note included) has finished. Text that grew at
// its end is appended at the end of the document, so a long score costs no
// more to follow than a short one; any other change replaces the document.
class PlainTextFollower : public QObject {
public:
    PlainTextFollower(TextBox& box, QPlainTextEdit& edit);

    // Laying out a long score takes the event thread longer than an audio
    // period; by waiting a few periods, the synthesizer has rendered a key's
    // first sound on the other core before the box competes with it. Shorter
    // than a screen frame, so the note still shows at once to the eye.
    static constexpr int kCatchUpDelayMs = 8;

    void textChanged();
    void selectionChanged();
    // Shows the model's text and selection now (the widget's own edits the
    // model refused, and the first showing).
    void showNow();
    // The widget holds this model text (after the user's own edit).
    void userEdited(const std::string& modelText) { shown_ = modelText; }

private:
    void schedule();
    void catchUp();
    void showText();
    void showSelection();

    TextBox& box_;
    QPlainTextEdit& edit_;
    std::string shown_;  // the model text the widget's document holds
    bool textStale_ = false;
    bool selectionStale_ = false;
    bool scheduled_ = false;
};

}  // namespace tessaly
