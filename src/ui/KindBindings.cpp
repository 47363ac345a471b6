#include "ui/KindBindings.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <memory>
#include <stdexcept>

#include "forms/Controls.h"
#include "runtime/Text.h"
#include "ui/PictureView.h"
#include "ui/PlainTextFollower.h"
#include "ui/TextConversion.h"

namespace tessaly {

namespace {

template <typename W>
W& widgetAs(Control& control, QWidget& widget) {
    if (auto* w = qobject_cast<W*>(&widget)) return *w;
    throw std::logic_error("widget of the wrong type for " + control.fullName());
}

// Set while the widget's own change is being handed to the model, so that the
// model's echo does not rewrite the widget under the user's hands.
class EchoGuard {
public:
    explicit EchoGuard(bool& flag) : flag_(flag) { flag_ = true; }
    ~EchoGuard() { flag_ = false; }
    EchoGuard(const EchoGuard&) = delete;
    EchoGuard& operator=(const EchoGuard&) = delete;

private:
    bool& flag_;
};

ApplyChange bindButton(Control& control, QWidget& widget) {
    auto& button = widgetAs<QAbstractButton>(control, widget);
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&control] { control.userClick(); });
    return [&control, &button](Prop prop) {
        if (prop == Prop::Caption) button.setText(toWidgetText(control.caption()));
    };
}

ApplyChange bindCheckBox(CheckBox& box, QWidget& widget) {
    auto& button = widgetAs<QAbstractButton>(box, widget);
    button.setCheckable(true);
    auto apply = [&box, &button](Prop prop) {
        if (prop == Prop::Caption) button.setText(toWidgetText(box.caption()));
        if (prop != Prop::Value) return;
        if (auto* check = qobject_cast<QCheckBox*>(&button)) {
            check->setTristate(box.value() == 2);
            check->setCheckState(box.value() == 2 ? Qt::PartiallyChecked : box.value() == 1 ? Qt::Checked : Qt::Unchecked);
        } else {
            button.setChecked(box.value() == 1);
        }
    };
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&box, &button, apply] {
        box.userClick();
        // The widget toggled itself; the model decides what it shows.
        QSignalBlocker blocker(button);
        apply(Prop::Value);
    });
    return apply;
}

ApplyChange bindOptionButton(OptionButton& option, QWidget& widget) {
    auto& button = widgetAs<QAbstractButton>(option, widget);
    button.setCheckable(true);
    auto apply = [&option, &button](Prop prop) {
        if (prop == Prop::Caption) button.setText(toWidgetText(option.caption()));
        if (prop == Prop::Value) button.setChecked(option.value());
    };
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&option, &button, apply] {
        option.userClick();
        QSignalBlocker blocker(button);
        apply(Prop::Value);
    });
    return apply;
}

ApplyChange bindComboBox(ListControl& list, QComboBox& combo) {
    auto echo = std::make_shared<bool>(false);
    auto apply = [&list, &combo, echo](Prop prop) {
        // While the user types, the entry the text matches must not rewrite the text.
        if (*echo && prop != Prop::Items) return;
        if (prop == Prop::Items) {
            // Lists grow one entry at a time and shrink only by clearing:
            // add what is new rather than refill a list of 128 for every entry.
            if (combo.count() > list.listCount()) combo.clear();
            for (int i = combo.count(); i < list.listCount(); ++i) combo.addItem(QString::fromStdString(list.item(i)));
        }
        if (prop == Prop::Items || prop == Prop::ListIndex || prop == Prop::Text) {
            combo.setCurrentIndex(list.listIndex());
            if (combo.isEditable()) combo.setEditText(QString::fromStdString(list.text()));
        }
    };
    QObject::connect(&combo, &QComboBox::activated, &combo, [&list](int index) {
        if (index >= 0 && index < list.listCount()) list.userPick(index);
    });
    if (QLineEdit* edit = combo.lineEdit()) {
        QObject::connect(edit, &QLineEdit::textEdited, &combo, [&list, echo](const QString& text) {
            EchoGuard guard(*echo);
            list.setText(text.toStdString());
        });
    }
    return apply;
}

ApplyChange bindListWidget(ListControl& list, QListWidget& view) {
    auto apply = [&list, &view](Prop prop) {
        if (prop == Prop::Items) {
            view.clear();
            for (int i = 0; i < list.listCount(); ++i) view.addItem(QString::fromStdString(list.item(i)));
        }
        if (prop == Prop::Items || prop == Prop::ListIndex) view.setCurrentRow(list.listIndex());
    };
    QObject::connect(&view, &QListWidget::currentRowChanged, &view, [&list](int row) {
        if (row >= 0 && row < list.listCount()) list.userPick(row);
    });
    return apply;
}

ApplyChange bindList(ListControl& list, QWidget& widget) {
    if (auto* combo = qobject_cast<QComboBox*>(&widget)) return bindComboBox(list, *combo);
    return bindListWidget(list, widgetAs<QListWidget>(list, widget));
}

// The box paints no background of its own, so the window's picture shows
// behind the text. Qt repaints what lies behind a box that is not opaque
// whenever the box changes, and scrolls it by repainting rather than by
// copying pixels, so typing and scrolling leave no traces.
void showWindowThrough(QPlainTextEdit& edit) {
    edit.setStyleSheet(QStringLiteral("QPlainTextEdit { background: transparent; }"));
    edit.viewport()->setAutoFillBackground(false);
    edit.viewport()->update();
}

// Multi-line text box. The widget follows the model once the handler that
// changed it has returned (see PlainTextFollower), so that a key's note is
// not held up by the layout of a long score.
ApplyChange bindPlainText(TextBox& box, QPlainTextEdit& edit) {
    auto echo = std::make_shared<bool>(false);
    auto* follower = new PlainTextFollower(box, edit);
    follower->showNow();
    auto apply = [&box, &edit, echo, follower](Prop prop) {
        if (prop == Prop::Backdrop && box.seeThrough()) showWindowThrough(edit);
        if (*echo) return;
        if (prop == Prop::Text) follower->textChanged();
        if (prop == Prop::Selection) follower->selectionChanged();
    };
    auto takeSelection = [&box, &edit] {
        QTextCursor cursor = edit.textCursor();
        QString text = edit.toPlainText();
        std::size_t start = modelPosition(text, cursor.selectionStart());
        std::size_t end = modelPosition(text, cursor.selectionEnd());
        box.setSelStart(static_cast<long>(start));
        box.setSelLength(static_cast<long>(end - start));
    };
    QObject::connect(&edit, &QPlainTextEdit::textChanged, &edit, [&box, &edit, echo, follower, takeSelection] {
        {
            EchoGuard guard(*echo);
            std::string typed = toModelText(edit.toPlainText());
            box.setText(typed);
            follower->userEdited(typed);
            takeSelection();
        }
        // The model may refuse part of it (MaxLength): show what it kept.
        if (toWidgetText(box.text()) != edit.toPlainText()) follower->showNow();
    });
    QObject::connect(&edit, &QPlainTextEdit::cursorPositionChanged, &edit, [echo, takeSelection] {
        EchoGuard guard(*echo);
        takeSelection();
    });
    return apply;
}

// Single-line text box.
ApplyChange bindLineEdit(TextBox& box, QLineEdit& edit) {
    auto echo = std::make_shared<bool>(false);
    if (box.maxLength() > 0) edit.setMaxLength(box.maxLength());
    auto apply = [&box, &edit, echo](Prop prop) {
        // No ground of its own: the panel's picture shows behind the text.
        if (prop == Prop::Backdrop && box.seeThrough())
            edit.setStyleSheet(QStringLiteral("QLineEdit { background: transparent; }"));
        if (*echo) return;
        if (prop == Prop::Text) edit.setText(toWidgetText(box.text()));
        if (prop == Prop::Text || prop == Prop::Selection)
            edit.setSelection(widgetPosition(box.text(), box.selStart()),
                              widgetPosition(box.text(), box.selStart() + box.selLength()) -
                                  widgetPosition(box.text(), box.selStart()));
    };
    auto takeSelection = [&box, &edit] {
        QString text = edit.text();
        int from = edit.hasSelectedText() ? edit.selectionStart() : edit.cursorPosition();
        int to = edit.hasSelectedText() ? edit.selectionEnd() : from;
        std::size_t start = modelPosition(text, from);
        box.setSelStart(static_cast<long>(start));
        box.setSelLength(static_cast<long>(modelPosition(text, to) - start));
    };
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [&box, echo, takeSelection](const QString& text) {
        EchoGuard guard(*echo);
        box.setText(toModelText(text));
        takeSelection();
    });
    QObject::connect(&edit, &QLineEdit::cursorPositionChanged, &edit, [echo, takeSelection] {
        EchoGuard guard(*echo);
        takeSelection();
    });
    return apply;
}

ApplyChange bindTextBox(TextBox& box, QWidget& widget) {
    if (auto* edit = qobject_cast<QPlainTextEdit*>(&widget)) return bindPlainText(box, *edit);
    return bindLineEdit(box, widgetAs<QLineEdit>(box, widget));
}

ApplyChange bindLabel(Control& label, QWidget& widget) {
    auto& view = widgetAs<QLabel>(label, widget);
    return [&label, &view](Prop prop) {
        if (prop == Prop::Caption) view.setText(toWidgetText(label.caption()));
    };
}

ApplyChange bindScrollBar(ScrollBar& bar, QWidget& widget) {
    auto& slider = widgetAs<QAbstractSlider>(bar, widget);
    QObject::connect(&slider, &QAbstractSlider::valueChanged, &slider, [&bar](int value) { bar.setValue(value); });
    // A range whose minimum is the larger runs the other way.
    return [&bar, &slider](Prop prop) {
        if (prop != Prop::Value) return;
        slider.setInvertedAppearance(bar.min() > bar.max());
        slider.setRange(std::min(bar.min(), bar.max()), std::max(bar.min(), bar.max()));
        slider.setValue(bar.value());
    };
}

ApplyChange bindPicture(PictureBox& picture, QWidget& widget) {
    auto* view = dynamic_cast<PictureView*>(&widget);
    return [&picture, view](Prop prop) {
        if (view && prop == Prop::Picture) view->setPictureId(picture.picture());
    };
}

ApplyChange bindForm(Control& form, QWidget& window) {
    return [&form, &window](Prop prop) {
        if (prop == Prop::Caption) window.setWindowTitle(QString::fromStdString(form.caption()));
        // A form has a fixed size; where it stands is the window manager's business.
        const Geometry& g = form.geometry();
        if (prop == Prop::Geometry && g.width > 0 && g.height > 0) window.setFixedSize(g.width, g.height);
    };
}

}  // namespace

ApplyChange bindKind(Control& control, QWidget& widget) {
    switch (control.kind()) {
    case ControlKind::Form: return bindForm(control, widget);
    case ControlKind::Button: return bindButton(control, widget);
    case ControlKind::CheckBox: return bindCheckBox(static_cast<CheckBox&>(control), widget);
    case ControlKind::OptionButton: return bindOptionButton(static_cast<OptionButton&>(control), widget);
    case ControlKind::ListBox:
    case ControlKind::ComboBox:
    case ControlKind::FileList: return bindList(static_cast<ListControl&>(control), widget);
    case ControlKind::TextBox: return bindTextBox(static_cast<TextBox&>(control), widget);
    case ControlKind::Label: return bindLabel(control, widget);
    case ControlKind::ScrollBar: return bindScrollBar(static_cast<ScrollBar&>(control), widget);
    case ControlKind::Picture: return bindPicture(static_cast<PictureBox&>(control), widget);
    case ControlKind::Timer: break;
    }
    throw std::logic_error(control.fullName() + " has no widget");
}

}  // namespace tessaly
