#pragma once
#include <string>

#include "jianpu/JianpuReading.h"

class QPagedPaintDevice;

namespace tessaly {

// Is the name one of a picture we write: .png, .svg or .pdf?
bool isJianpuPicturePath(const std::string& path);

// Lays the reading out for A4 paper under the title and writes it as the
// name's extension says. The file appears only once complete. Empty when
// written, else the reason, in Chinese.
std::string writeJianpuPicture(const std::string& path, const JianpuReading& reading, const std::string& title);

// The same layout on a printer or another paged device.
void printJianpu(QPagedPaintDevice& device, const JianpuReading& reading, const std::string& title);

}  // namespace tessaly
