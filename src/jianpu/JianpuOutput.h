#pragma once
#include <string>

#include "jianpu/JianpuReading.h"

namespace tessaly {

// What puts the notation on paper and into picture files. The program gives
// one drawn with Qt; without one the buttons say that they cannot.
class JianpuOutput {
public:
    virtual ~JianpuOutput() = default;
    // The picture's type follows the name's extension: .png, .svg or .pdf.
    // Empty when written, else the reason, in Chinese.
    virtual std::string writePicture(const std::string& path, const JianpuReading& reading, const std::string& title) = 0;
    // Asks for a printer (or a PDF file) in the platform's print dialog; false
    // when the user cancels. Empty when printed, else the reason.
    virtual std::string print(const JianpuReading& reading, const std::string& title, bool& cancelled) = 0;
};

}  // namespace tessaly
