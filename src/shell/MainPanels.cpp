#include "shell/MainPanels.h"

#include "forms/MainWindow.h"

namespace tessaly {

namespace {

// What lies between a panel's boxes and the form.
constexpr int kPanelBoxOffsetX = 8, kPanelBoxOffsetY = 32;

struct TabTexts {
    int tab;
    const char* status;
    const char* information;
};

constexpr TabTexts kTabTexts[] = {
    {0, "旋律调整。。。", "选择即将使用的乐器以及旋律的音调音量等参数！"},
    {1, "和弦调整。。。", "选择即将使用的乐器以及音量等参数！"},
    {2, "节奏调整。。。", "选择即将使用的乐器以及设置节奏类型音量等参数！"},
    {4, "查看帮助。。。", "了解本软件的各种功能及使用技巧等！"},
    {5, "键位设置。。。", "设置常用的快速切换按键值，保存以后下次使用本软件时将自动加载最后的设置！"},
};

}  // namespace

MainPanels::MainPanels(MainWindow& form) : form_(form) {}

void MainPanels::wire() {
    for (auto& [index, tab] : form_.Xxk) {
        int i = static_cast<int>(index);
        tab->onClick = [this, i] { Xxk_Click(i); };
    }
}

void MainPanels::setEntryAction(int tab, std::function<void()> action) { entryActions_[tab] = std::move(action); }

void MainPanels::addSeeThroughBox(int tab, TextBox& box) {
    seeThroughBoxes_.emplace(tab, &box);
    box.makeSeeThrough(kPanelBoxOffsetX, kPanelBoxOffsetY);
}

void MainPanels::Xxk_Click(int Index) {
    for (auto& [index, panel] : form_.Jiezhou) panel->setVisible(index == Index);
    for (const TabTexts& texts : kTabTexts)
        if (texts.tab == Index) {
            form_.FJWZ.setCaption(texts.status);
            form_.XSWB.setCaption(texts.information);
        }
    if (Index == 1 || Index == 2 || Index == 4) {
        auto [first, last] = seeThroughBoxes_.equal_range(Index);
        for (auto it = first; it != last; ++it) it->second->makeSeeThrough(kPanelBoxOffsetX, kPanelBoxOffsetY);
    }
    if (auto entry = entryActions_.find(Index); entry != entryActions_.end() && entry->second) entry->second();
    // Play can go on at once, whatever panel the user opened.
    form_.SFYXYZ.setEnabled(true);
    form_.SFYXYZ.setFocus();
}

}  // namespace tessaly
