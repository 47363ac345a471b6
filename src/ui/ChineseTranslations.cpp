#include "ui/ChineseTranslations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

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

}  // namespace tessaly
