#pragma once
#include <optional>
#include <string>

namespace tessaly {

// The common file dialogs and the input box. A filter reads "说明|*.ext";
// an answer of nullopt is the user's cancel.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual std::optional<std::string> openFile(const std::string& filter, const std::string& startFolder) = 0;
    // The dialog itself asks before an existing file is replaced.
    virtual std::optional<std::string> saveFile(const std::string& filter, const std::string& startFolder) = 0;
    // The same, telling also which pair of the filter the user chose (from
    // 0), or -1 where the dialog cannot say. The dialog may offer
    // suggestedName (no extension) with the chosen type's extension.
    virtual std::optional<std::string> saveFileOfType(const std::string& filter, const std::string& startFolder,
                                                      int& chosenType, const std::string& suggestedName) {
        (void)suggestedName;
        chosenType = -1;
        return saveFile(filter, startFolder);
    }
    virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                                const std::string& defaultText) = 0;

    // The folder the last file dialog went to: a bare file name is looked up
    // there, as in the process's current directory after a dialog. Empty
    // before any dialog.
    const std::string& currentFolder() const { return currentFolder_; }

protected:
    void wentTo(const std::string& path);
    // A dialog that stands in for another follows the folder it went to.
    void wentWhere(const Dialogs& other) { currentFolder_ = other.currentFolder_; }

private:
    std::string currentFolder_;
};

}  // namespace tessaly
