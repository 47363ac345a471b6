#include "ui/HelpPageView.h"

#include <QPlainTextEdit>
#include <QRadioButton>

#include "forms/MainWindow.h"
#include "ui/ControlBinder.h"

namespace tessaly {

namespace {
constexpr int kTopicLeft = 10, kTopicTop = 8, kTopicWidth = 96, kTopicStep = 22, kTopicHeight = 20;
constexpr int kTextLeft = 114, kTextTop = 8, kTextWidth = 440, kTextHeight = 150;
}  // namespace

void placeHelpPage(MainWindow& form) {
    HelpPage& page = form.helpPage;
    for (auto& [index, option] : page.Option2)
        option->setGeometry({kTopicLeft, kTopicTop + static_cast<int>(index) * kTopicStep, kTopicWidth, kTopicHeight});
    page.Text1.setGeometry({kTextLeft, kTextTop, kTextWidth, kTextHeight});
}

void buildHelpPageView(QWidget& panel, MainWindow& model, ControlBinder& binder) {
    HelpPage& page = model.helpPage;
    for (auto& [index, option] : page.Option2) {
        auto* topic = new QRadioButton(&panel);
        topic->setObjectName(QStringLiteral("helpTopic"));
        // The model keeps the topics exclusive.
        topic->setAutoExclusive(false);
        binder.bind(*option, *topic);
    }
    auto* text = new QPlainTextEdit(&panel);
    text->setObjectName(QStringLiteral("helpText"));
    text->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    binder.bind(page.Text1, *text);
}

}  // namespace tessaly
