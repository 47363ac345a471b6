#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QStyle>
#include <QtTest/QTest>
#include <QWidget>

#include "ui/ChineseTranslations.h"
#include "ui/InstrumentStyle.h"
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

// Each save dialog of the program names one extension in its filter, which a
// name typed without one gets; the export's three types each give their own.
TEST(QtDialogs, EverySaveFilterOfTheProgramNamesTheExtensionANameGets) {
    for (const char* filter : {"节奏bin|*.bin", "乐谱记录txt|*.txt", "乐谱编辑|*.lnk", "演奏录音(wav)|*.wav"}) {
        const QString entry = qtFileFilter(filter);
        EXPECT_EQ(singleExtension(entry), entry.section(QStringLiteral("*."), 1).chopped(1)) << filter;
    }
    const QStringList exports = qtFileFilter("MIDI 文件|*.mid|WAV 音频|*.wav|MP3 音频|*.mp3").split(QStringLiteral(";;"));
    EXPECT_EQ(singleExtension(exports[0]), "mid");
    EXPECT_EQ(singleExtension(exports[2]), "mp3");
    // Several patterns or a wildcard name no one extension.
    EXPECT_EQ(singleExtension(qtFileFilter("音频文件(wav;mp3)|*.wav;*.mp3")), "");
    EXPECT_EQ(singleExtension(qtFileFilter("全部|*.*")), "");
}

// A rhythm saved as "myrhythm" is written as myrhythm.bin, where the rhythm
// list (*.bin) finds it.
TEST(QtDialogs, ANameTypedWithoutExtensionGetsTheFiltersOne) {
    QTemporaryDir folder;
    QtDialogs dialogs;
    QTimer::singleShot(300, [] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        QTest::keyClicks(name, QStringLiteral("myrhythm"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    const std::optional<std::string> chosen = dialogs.saveFile("节奏bin|*.bin", folder.path().toStdString());
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, folder.filePath(QStringLiteral("myrhythm.bin")).toStdString());
}

// Sizes and dates in the file dialogs are written in Chinese whatever the
// user's locale.
TEST(QtDialogs, TheSystemLocaleQtWritesSizesInIsChinese) {
    EXPECT_EQ(QLocale::system().language(), QLocale::Chinese);
    EXPECT_TRUE(QLocale::system().formattedDataSize(161).contains(QStringLiteral("字节")))
        << QLocale::system().formattedDataSize(161).toStdString();
}

TEST(QtDialogs, IsADialogsOfThePlatformBeforeAnyDialogOpens) {
    QWidget parent;
    QtDialogs dialogs;
    dialogs.setParentWindow(&parent);
    Dialogs& platformDialogs = dialogs;
    EXPECT_TRUE(platformDialogs.currentFolder().empty());
}

TEST(QtDialogs, TheFileDialogSpeaksChineseInReadableColoursWithWholeColumns) {
    ASSERT_TRUE(installChineseTranslations());
    QTemporaryDir folder;
    for (const char* name : {"小星星.txt", "一首名字相当长的乐谱文件.txt"}) {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("KC8TZ\r\n");
    }
    QWidget window;  // the main window's light-on-dark style, which a dialog over it inherits
    window.setStyleSheet(instrumentStyleSheet());
    window.show();
    QtDialogs dialogs;
    dialogs.setParentWindow(&window);

    bool inspected = false;
    QTimer::singleShot(300, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* lookIn = dialog->findChild<QLabel*>(QStringLiteral("lookInLabel"));
        auto* fileName = dialog->findChild<QLabel*>(QStringLiteral("fileNameLabel"));
        ASSERT_NE(lookIn, nullptr);
        ASSERT_NE(fileName, nullptr);
        // Translated: no English words left on the labels.
        EXPECT_FALSE(lookIn->text().contains(QStringLiteral("Look"))) << lookIn->text().toStdString();
        EXPECT_FALSE(fileName->text().contains(QStringLiteral("name"))) << fileName->text().toStdString();
        // Dark text on a light dialog.
        EXPECT_LT(lookIn->palette().color(QPalette::WindowText).lightness(), 100);
        EXPECT_GT(dialog->palette().color(QPalette::Window).lightness(), 200);
        // Every column of the file list shows its contents whole.
        auto* files = dialog->findChild<QTreeView*>(QStringLiteral("treeView"));
        ASSERT_NE(files, nullptr);
        QTest::qWait(200);  // the list is read in the background
        QAbstractItemModel* model = files->model();
        const QModelIndex root = files->rootIndex();
        ASSERT_EQ(model->rowCount(root), 2);
        for (int row = 0; row < model->rowCount(root); ++row)
            for (int column = 0; column < files->header()->count(); ++column) {
                if (files->isColumnHidden(column)) continue;
                const QString text = model->index(row, column, root).data().toString();
                // Room for the text between the item's margins, as the style draws it,
                // and in the first column for the icon too.
                const int margins = 2 * (files->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, files) + 1);
                const int icon = column == 0 ? files->iconSize().width() + margins : 0;
                const int needed = files->fontMetrics().horizontalAdvance(text) + margins + std::max(icon, 0);
                EXPECT_GE(files->header()->sectionSize(column), needed) << text.toStdString();
            }
        inspected = true;
        dialog->reject();
    });
    EXPECT_EQ(dialogs.openFile("乐谱记录txt|*.txt", folder.path().toStdString()), std::nullopt);
    EXPECT_TRUE(inspected);
}

// The export's dialog offers the work's name with the extension of the type
// chosen, and follows the type until the user changes the name.
TEST(QtDialogs, TheExportDialogOffersTheWorksNameWithTheTypesExtension) {
    QTemporaryDir folder;
    QtDialogs dialogs;
    QString offered, afterTypeChange;
    QTimer::singleShot(300, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        offered = name->text();
        dialog->selectNameFilter(QStringLiteral("WAV 音频 (*.wav)"));
        emit dialog->filterSelected(QStringLiteral("WAV 音频 (*.wav)"));
        afterTypeChange = name->text();
        QTest::keyClick(name, Qt::Key_Return);
    });
    int type = -1;
    const std::optional<std::string> chosen = dialogs.saveFileOfType(
        "MIDI 文件|*.mid|WAV 音频|*.wav|MP3 音频|*.mp3", folder.path().toStdString(), type, "茉莉花");
    EXPECT_EQ(offered, QStringLiteral("茉莉花.mid"));
    EXPECT_EQ(afterTypeChange, QStringLiteral("茉莉花.wav"));
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, folder.filePath(QStringLiteral("茉莉花.wav")).toStdString());
    EXPECT_EQ(type, 1);
}
