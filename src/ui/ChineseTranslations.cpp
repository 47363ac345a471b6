#include "ui/ChineseTranslations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <QList>
#include <iterator>

namespace tessaly {

bool installChineseTranslations() {
    auto* translator = new QTranslator(QCoreApplication::instance());
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!translator->load(QLocale(QLocale::Chinese, QLocale::China), QStringLiteral("qtbase"), QStringLiteral("_"),
                          folder)) {
        delete translator;
        return false;
    }
    QCoreApplication::installTranslator(translator);
    // Dates and file types in the dialogs follow the same language.
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    return true;
}

void useChineseSystemLocale() {
    // Qt's file dialog writes sizes and dates in the system's locale, which it
    // reads from these variables once. They are set for that reading only:
    // the C library's locale and the programs we start keep the user's own.
    const char* const names[] = {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LC_MESSAGES", "LANG"};
    QList<QByteArray> saved;
    QList<bool> wasSet;
    for (const char* name : names) {
        wasSet << qEnvironmentVariableIsSet(name);
        saved << qgetenv(name);
        qputenv(name, "zh_CN.UTF-8");
    }
    QLocale::system();
    for (qsizetype i = 0; i < saved.size(); ++i) {
        if (wasSet[i]) qputenv(names[i], saved[i]);
        else qunsetenv(names[i]);
    }
}

}  // namespace tessaly
