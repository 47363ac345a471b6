#include "platform/testing/ScriptedDialogs.h"

namespace tessaly {

std::optional<std::string> ScriptedDialogs::answerFile(Request request) {
    lastRequest_ = std::move(request);
    if (fileAnswers_.empty()) return std::nullopt;
    std::optional<std::string> answer = std::move(fileAnswers_.front());
    fileAnswers_.pop_front();
    if (answer) wentTo(*answer);
    return answer;
}

std::optional<std::string> ScriptedDialogs::openFile(const std::string& filter, const std::string& startFolder) {
    return answerFile({"open", filter, startFolder, {}, {}});
}

std::optional<std::string> ScriptedDialogs::saveFile(const std::string& filter, const std::string& startFolder) {
    return answerFile({"save", filter, startFolder, {}, {}});
}

std::optional<std::string> ScriptedDialogs::inputBox(const std::string& prompt, const std::string& title,
                                                     const std::string&) {
    lastRequest_ = Request{"input", {}, {}, prompt, title};
    if (inputAnswers_.empty()) return std::nullopt;
    std::optional<std::string> answer = std::move(inputAnswers_.front());
    inputAnswers_.pop_front();
    return answer;
}

}  // namespace tessaly
