#include <gtest/gtest.h>

#include "Harness.h"
#include "runtime/Text.h"
#include "shell/HelpTopics.h"

using namespace tessaly;
using tessaly::testing::Harness;

TEST(MainWindowShell, AWebAddressTheSystemCannotOpenGivesTheNetworkBox) {
    Harness h;  // its platform has no browser
    h.log.take();
    h.app->form1.statusArea.Command2[1].userClick();
    EXPECT_EQ(h.log.take(), std::vector<std::string>{"box 网络错误|网络连接出错，请检查网络情况！"});
}

TEST(MainWindowShell, TheCreditLineRunsByCharactersAndComesRoundWhole) {
    Harness h;
    MainWindowShell& shell = h.app->windowShell;
    const std::string start = shell.state.CreditLine;
    const std::size_t length = charLength(start);
    ASSERT_GT(length, 10u);
    shell.Timer2_Timer();
    EXPECT_EQ(h.app->form1.statusArea.Label8.caption(), charSubstr(start, 1) + charSubstr(start, 0, 1));
    for (std::size_t i = 1; i < length; ++i) shell.Timer2_Timer();
    EXPECT_EQ(shell.state.CreditLine, start);  // no character was split on the way
}

TEST(MainWindowShell, HelpTopicsKeepTheirParagraphsAndNothingElseBreaksALine) {
    // String 502 is five paragraphs; 503 and 504 are one each.
    auto paragraphs = [](const std::string& text) {
        std::size_t count = 1;
        for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + 2)) ++count;
        return count;
    };
    EXPECT_EQ(paragraphs(helpString(502)), 5u);
    EXPECT_EQ(paragraphs(helpString(503)), 1u);
    EXPECT_EQ(paragraphs(helpString(506)), 3u);
    for (int id = 500; id <= 506; ++id) {
        std::string text = helpString(id);
        std::string bare;
        for (std::size_t at = 0; at < text.size(); ++at)
            if (text.compare(at, 2, "\r\n") == 0) ++at;
            else bare += text[at];
        EXPECT_EQ(bare.find_first_of("\r\n"), std::string::npos) << id;
    }
    EXPECT_TRUE(std::string(helpString(502)).starts_with("点击乐谱编辑窗口下的<打开>按钮可以打开以前保存的乐谱文档"));
    EXPECT_TRUE(std::string(helpString(502)).ends_with("，结尾时加上\"TZ\"符号终止发音。"));
}
