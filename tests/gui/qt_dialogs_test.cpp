#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
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
