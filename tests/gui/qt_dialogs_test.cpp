#include <gtest/gtest.h>

#include <QWidget>

#include "ui/QtDialogs.h"

using namespace tessaly;

TEST(QtDialogs, FiltersAreTranslatedToTheFileDialogsForm) {
    EXPECT_EQ(qtFileFilter("乐谱记录txt|*.txt"), "乐谱记录txt (*.txt)");
    EXPECT_EQ(qtFileFilter("节奏|*.bin|全部文件|*.*"), "节奏 (*.bin);;全部文件 (*.*)");
    EXPECT_EQ(qtFileFilter("声音|*.wav;*.mp3"), "声音 (*.wav *.mp3)");
    EXPECT_EQ(qtFileFilter(""), "");
}

TEST(QtDialogs, TheChosenEntryOfAFilterIsFoundByItsPair) {
    const std::string exports = "MIDI 文件|*.mid|WAV 音频|*.wav|MP3 音频|*.mp3";
    EXPECT_EQ(qtFilterIndex(exports, "MIDI 文件 (*.mid)"), 0);
    EXPECT_EQ(qtFilterIndex(exports, "MP3 音频 (*.mp3)"), 2);
    EXPECT_EQ(qtFilterIndex(exports, ""), -1);
}

TEST(QtDialogs, IsADialogsOfThePlatformBeforeAnyDialogOpens) {
    QWidget parent;
    QtDialogs dialogs;
    dialogs.setParentWindow(&parent);
    Dialogs& platformDialogs = dialogs;
    EXPECT_TRUE(platformDialogs.currentFolder().empty());
}
