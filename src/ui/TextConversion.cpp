#include "ui/TextConversion.h"

#include "runtime/Text.h"

namespace tessaly {

QString toWidgetText(const std::string& modelText) {
    QString text = QString::fromStdString(modelText);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

std::string toModelText(const QString& widgetText) {
    QString text = widgetText;
    text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return text.toStdString();
}

int widgetPosition(const std::string& modelText, std::size_t modelChars) {
    return static_cast<int>(toWidgetText(charSubstr(modelText, 0, modelChars)).size());
}

std::size_t modelPosition(const QString& widgetText, int widgetPos) {
    return charLength(toModelText(widgetText.left(widgetPos)));
}

}  // namespace tessaly
