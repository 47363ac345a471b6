#include "ui/PlainTextFollower.h"

#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>
#include <QTimer>

#include "forms/Controls.h"
#include "ui/TextConversion.h"

namespace tessaly {

PlainTextFollower::PlainTextFollower(TextBox& box, QPlainTextEdit& edit) : QObject(&edit), box_(box), edit_(edit) {}

void PlainTextFollower::textChanged() {
    textStale_ = true;
    schedule();
}

void PlainTextFollower::selectionChanged() {
    selectionStale_ = true;
    schedule();
}

void PlainTextFollower::showNow() {
    textStale_ = true;
    selectionStale_ = true;
    catchUp();
}

void PlainTextFollower::schedule() {
    if (scheduled_) return;
    scheduled_ = true;
    QTimer::singleShot(kCatchUpDelayMs, Qt::PreciseTimer, this, [this] { catchUp(); });
}

void PlainTextFollower::catchUp() {
    scheduled_ = false;
    QSignalBlocker blocker(edit_);
    if (textStale_) showText();
    if (textStale_ || selectionStale_) showSelection();
    textStale_ = selectionStale_ = false;
}

void PlainTextFollower::showText() {
    const std::string& text = box_.text();
    if (text == shown_) return;
    // A score is one long run of tokens without a space: searching it for
    // word boundaries that are not there costs Qt several times the layout
    // itself, and it wraps anywhere in the end all the same.
    const QTextOption::WrapMode wrap =
        text.find(' ') == std::string::npos ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere;
    if (edit_.wordWrapMode() != wrap) edit_.setWordWrapMode(wrap);
    // A line break of CR LF split between what is shown and what follows
    // would show as two breaks: such a text is shown whole.
    const bool grew = !shown_.empty() && text.size() > shown_.size() && shown_.back() != '\r' &&
                      text.compare(0, shown_.size(), shown_) == 0;
    if (grew) {
        QTextCursor end(edit_.document());
        end.movePosition(QTextCursor::End);
        end.insertText(toWidgetText(text.substr(shown_.size())));
        // Text the program writes is not the user's to undo, as with a new document.
        edit_.document()->clearUndoRedoStacks();
    } else {
        edit_.setPlainText(toWidgetText(text));
    }
    shown_ = text;
}

void PlainTextFollower::showSelection() {
    const std::string& text = box_.text();
    QTextCursor cursor = edit_.textCursor();
    cursor.setPosition(widgetPosition(text, box_.selStart()));
    cursor.setPosition(widgetPosition(text, box_.selStart() + box_.selLength()), QTextCursor::KeepAnchor);
    edit_.setTextCursor(cursor);
}

}  // namespace tessaly
