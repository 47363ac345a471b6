#include "ui/QtDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>
#include <QInputDialog>
#include <QLineEdit>
#include <memory>
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

QString singleExtension(const QString& entry) {
    const qsizetype open = entry.lastIndexOf(QLatin1Char('(')), close = entry.lastIndexOf(QLatin1Char(')'));
    if (open < 0 || close <= open) return QString();
    const QStringList patterns = entry.mid(open + 1, close - open - 1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (patterns.size() != 1 || !patterns[0].startsWith(QStringLiteral("*."))) return QString();
    const QString extension = patterns[0].mid(2);
    if (extension.isEmpty() || extension.contains(QLatin1Char('*')) || extension.contains(QLatin1Char('?')))
        return QString();
    return extension;
}

void suggestName(QFileDialog& dialog, const QString& name) {
    auto withExtension = [name](const QString& entry) {
        const QString extension = singleExtension(entry);
        return extension.isEmpty() ? name : name + QLatin1Char('.') + extension;
    };
    dialog.selectFile(withExtension(dialog.selectedNameFilter()));
    // Another type chosen: the suggestion, while the user has not changed it,
    // takes that type's extension.
    auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!box) return;
    auto previous = std::make_shared<QString>(box->text());
    QObject::connect(&dialog, &QFileDialog::filterSelected, box, [box, previous, withExtension](const QString& entry) {
        if (box->text() != *previous) return;
        *previous = withExtension(entry);
        box->setText(*previous);
    });
}

std::optional<std::string> QtDialogs::chosen(const QString& path) {
    if (path.isEmpty()) return std::nullopt;
    std::string answer = path.toStdString();
    wentTo(answer);
    return answer;
}

QString dialogStyleSheet() {
    // The window's own style is light text for a dark picture; a dialog is a
    // light window of its own and resets every colour it would inherit.
    return QStringLiteral(R"(
QFileDialog, QMessageBox, QInputDialog { background: #f4f7fb; }
QFileDialog QLabel, QFileDialog QCheckBox, QMessageBox QLabel, QInputDialog QLabel {
    color: #17222f; background: transparent; }
QFileDialog QLineEdit, QFileDialog QComboBox, QFileDialog QTreeView, QFileDialog QListView, QInputDialog QLineEdit {
    color: #17222f; background: #ffffff; selection-background-color: #3d7bc4; selection-color: #ffffff;
    border: 1px solid #8fa8c4; }
QFileDialog QHeaderView::section { color: #17222f; background: #e3eaf3; padding: 3px 6px; border: 0px;
    border-right: 1px solid #c9d4e2; }
QFileDialog QPushButton, QMessageBox QPushButton, QInputDialog QPushButton { color: #17222f; background: #e9eff7;
    border: 1px solid #8fa8c4; border-radius: 4px; padding: 3px 14px; min-width: 56px; }
QFileDialog QPushButton:focus, QMessageBox QPushButton:focus, QInputDialog QPushButton:focus {
    border: 2px solid #3d7bc4; }
QFileDialog QPushButton:disabled, QInputDialog QPushButton:disabled { color: #8a96a6; }
QFileDialog QToolButton { background: transparent; }
)");
}

std::optional<std::string> QtDialogs::runFileDialog(bool saving, const std::string& filter,
                                                    const std::string& startFolder, int* chosenType,
                                                    const std::string& suggestedName) {
    QFileDialog dialog(parentWindow(), saving ? QStringLiteral("保存") : QStringLiteral("打开"),
                       QString::fromStdString(startFolder), qtFileFilter(filter));
    // Qt's own dialog everywhere, in the program's language and colours.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setStyleSheet(dialogStyleSheet());
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setViewMode(QFileDialog::Detail);
    // Wide enough for the name, size, type and date columns whole.
    dialog.resize(kFileDialogWidth, kFileDialogHeight);
    if (auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        files->header()->setStretchLastSection(false);
        files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        for (int column = 1; column < files->header()->count(); ++column)
            files->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    }
    // A name typed without an extension gets the one the chosen type names,
    // as the desktop's own dialogs give it.
    if (saving) {
        dialog.setDefaultSuffix(singleExtension(dialog.selectedNameFilter()));
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                         [&dialog](const QString& entry) { dialog.setDefaultSuffix(singleExtension(entry)); });
        if (!suggestedName.empty()) suggestName(dialog, QString::fromStdString(suggestedName));
    }
    // QFileDialog asks before it replaces an existing file.
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    if (chosenType) *chosenType = qtFilterIndex(filter, dialog.selectedNameFilter());
    return chosen(dialog.selectedFiles().constFirst());
}

std::optional<std::string> QtDialogs::openFile(const std::string& filter, const std::string& startFolder) {
    return runFileDialog(false, filter, startFolder);
}

std::optional<std::string> QtDialogs::saveFile(const std::string& filter, const std::string& startFolder) {
    return runFileDialog(true, filter, startFolder);
}

int qtFilterIndex(const std::string& filter, const QString& entry) {
    return static_cast<int>(qtFileFilter(filter).split(QStringLiteral(";;")).indexOf(entry));
}

std::optional<std::string> QtDialogs::saveFileOfType(const std::string& filter, const std::string& startFolder,
                                                     int& chosenType, const std::string& suggestedName) {
    chosenType = -1;
    return runFileDialog(true, filter, startFolder, &chosenType, suggestedName);
}

std::optional<std::string> QtDialogs::inputBox(const std::string& prompt, const std::string& title,
                                               const std::string& defaultText) {
    QInputDialog dialog(parentWindow());
    dialog.setStyleSheet(dialogStyleSheet());
    dialog.setWindowTitle(QString::fromStdString(title));
    dialog.setLabelText(toWidgetText(prompt));
    dialog.setTextValue(toWidgetText(defaultText));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return toModelText(dialog.textValue());
}

}  // namespace tessaly
