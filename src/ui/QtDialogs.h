#pragma once
#include <QPointer>
#include <QString>
#include <QWidget>

#include "platform/Dialogs.h"

namespace tessaly {

// The file dialogs and the input box on the screen, modal over the main window.
class QtDialogs : public Dialogs {
public:
    void setParentWindow(QWidget* window) { parent_ = window; }

    std::optional<std::string> openFile(const std::string& filter, const std::string& startFolder) override;
    std::optional<std::string> saveFile(const std::string& filter, const std::string& startFolder) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;

    static constexpr int kFileDialogWidth = 860, kFileDialogHeight = 520;

private:
    std::optional<std::string> runFileDialog(bool saving, const std::string& filter, const std::string& startFolder);
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

// The file dialogs' own light style, whatever window they open over.
QString fileDialogStyleSheet();

}  // namespace tessaly
