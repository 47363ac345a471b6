#pragma once
#include <QPointer>
#include <QString>
#include <QWidget>

class QFileDialog;

#include "platform/Dialogs.h"

namespace tessaly {

// The file dialogs and the input box on the screen, modal over the main window.
class QtDialogs : public Dialogs {
public:
    void setParentWindow(QWidget* window) { parent_ = window; }

    std::optional<std::string> openFile(const std::string& filter, const std::string& startFolder) override;
    std::optional<std::string> saveFile(const std::string& filter, const std::string& startFolder) override;
    std::optional<std::string> saveFileOfType(const std::string& filter, const std::string& startFolder,
                                              int& chosenType, const std::string& suggestedName) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;

    static constexpr int kFileDialogWidth = 860, kFileDialogHeight = 520;

private:
    // chosenType, when given, gets which pair of the filter was chosen (-1: none).
    std::optional<std::string> runFileDialog(bool saving, const std::string& filter, const std::string& startFolder,
                                             int* chosenType = nullptr, const std::string& suggestedName = "");
    std::optional<std::string> chosen(const QString& path);

    // The window given, or the active one while that is hidden (the editor
    // replaces the main window on the screen).
    QWidget* parentWindow() const;
    QPointer<QWidget> parent_;
};

// A filter of description and pattern pairs, "乐谱记录txt|*.txt|全部|*.*", in
// the file dialog's own form: "乐谱记录txt (*.txt);;全部 (*.*)". Patterns
// joined by ';' become a space-separated list.
QString qtFileFilter(const std::string& filter);

// Which pair of the filter an entry of the dialog's form stands for; -1 for none.
int qtFilterIndex(const std::string& filter, const QString& entry);

// The one extension an entry of the dialog's filter names ("节奏bin (*.bin)"
// gives "bin"); empty for several patterns or a wildcard.
QString singleExtension(const QString& entry);

// Offers NAME in a save dialog with the extension of the type chosen, and
// follows the type while the user leaves the name as offered.
void suggestName(QFileDialog& dialog, const QString& name);

// The dialogs' and boxes' own light style, whatever window they open over.
QString dialogStyleSheet();

}  // namespace tessaly
