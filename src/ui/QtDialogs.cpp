#include "ui/QtDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QStringList>

#include "ui/TextConversion.h"

namespace tessaly {

QWidget* QtDialogs::parentWindow() const {
    if (parent_ && parent_->isVisible()) return parent_.data();
    if (QWidget* active = QApplication::activeWindow()) return active;
    return parent_.data();
}

QString qtFileFilter(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList entries;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString& pattern : patterns) pattern = pattern.trimmed();
        entries << parts[i].trimmed() + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    }
    // A lone description with no pattern still names what is offered.
    if (parts.size() % 2 == 1 && !parts.back().isEmpty()) entries << parts.back();
    return entries.join(QStringLiteral(";;"));
}

std::optional<std::string> QtDialogs::chosen(const QString& path) {
    if (path.isEmpty()) return std::nullopt;
    std::string answer = path.toStdString();
    wentTo(answer);
    return answer;
}

std::optional<std::string> QtDialogs::openFile(const std::string& filter, const std::string& startFolder) {
    return chosen(QFileDialog::getOpenFileName(parentWindow(), QStringLiteral("打开"),
                                               QString::fromStdString(startFolder), qtFileFilter(filter)));
}

std::optional<std::string> QtDialogs::saveFile(const std::string& filter, const std::string& startFolder) {
    // QFileDialog asks before it replaces an existing file.
    return chosen(QFileDialog::getSaveFileName(parentWindow(), QStringLiteral("保存"),
                                               QString::fromStdString(startFolder), qtFileFilter(filter)));
}

int qtFilterIndex(const std::string& filter, const QString& entry) {
    return static_cast<int>(qtFileFilter(filter).split(QStringLiteral(";;")).indexOf(entry));
}

std::optional<std::string> QtDialogs::saveFileOfType(const std::string& filter, const std::string& startFolder,
                                                     int& chosenType) {
    QString entry;
    const QString path = QFileDialog::getSaveFileName(parentWindow(), QStringLiteral("保存"),
                                                      QString::fromStdString(startFolder), qtFileFilter(filter), &entry);
    chosenType = qtFilterIndex(filter, entry);
    return chosen(path);
}

std::optional<std::string> QtDialogs::inputBox(const std::string& prompt, const std::string& title,
                                               const std::string& defaultText) {
    bool ok = false;
    QString text = QInputDialog::getText(parentWindow(), QString::fromStdString(title), toWidgetText(prompt),
                                         QLineEdit::Normal, toWidgetText(defaultText), &ok);
    if (!ok) return std::nullopt;
    return toModelText(text);
}

}  // namespace tessaly
