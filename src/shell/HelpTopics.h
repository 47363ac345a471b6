#pragma once

namespace tessaly {

// The topics of the help panel: caption of the option and the string shown.
struct HelpTopic {
    const char* caption;
    int stringId;
};
constexpr int kHelpTopicCount = 7;
extern const HelpTopic kHelpTopics[kHelpTopicCount];

// The program's help string by id (500..506); paragraphs end in CR LF.
const char* helpString(int id);

}  // namespace tessaly
