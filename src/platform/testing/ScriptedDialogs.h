#pragma once
#include <deque>
#include <optional>
#include <string>

#include "platform/Dialogs.h"

namespace tessaly {

// Dialogs answered from queues filled beforehand (the script driver's
// "dialog PATH", "dialog cancel", "input TEXT", "input cancel"). A dialog with
// no answer waiting is cancelled. The last request is kept for tests.
class ScriptedDialogs : public Dialogs {
public:
    void queueFileAnswer(std::optional<std::string> path) { fileAnswers_.push_back(std::move(path)); }
    void queueInputAnswer(std::optional<std::string> text) { inputAnswers_.push_back(std::move(text)); }

    std::optional<std::string> openFile(const std::string& filter, const std::string& startFolder) override;
    std::optional<std::string> saveFile(const std::string& filter, const std::string& startFolder) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultText) override;

    struct Request {
        std::string kind;  // "open", "save" or "input"
        std::string filter, startFolder;
        std::string prompt, title;  // of an input box
    };
    const std::optional<Request>& lastRequest() const { return lastRequest_; }

private:
    std::optional<std::string> answerFile(Request request);

    std::deque<std::optional<std::string>> fileAnswers_;
    std::deque<std::optional<std::string>> inputAnswers_;
    std::optional<Request> lastRequest_;
};

}  // namespace tessaly
