#pragma once
#include <QString>
#include <cstddef>
#include <string>

namespace tessaly {

// The model keeps UTF-8 text with CR LF line ends and counts characters; Qt
// widgets keep UTF-16 with line feeds. These convert texts and caret positions.
QString toWidgetText(const std::string& modelText);
std::string toModelText(const QString& widgetText);
int widgetPosition(const std::string& modelText, std::size_t modelChars);
std::size_t modelPosition(const QString& widgetText, int widgetPos);

}  // namespace tessaly
