#pragma once
#include "jianpu/JianpuOutput.h"

class QWidget;

namespace tessaly {

// Pictures drawn with Qt, and printing through Qt's print dialog (whose
// printers include a PDF file).
class QtJianpuOutput : public JianpuOutput {
public:
    explicit QtJianpuOutput(QWidget* dialogParent) : parent_(dialogParent) {}

    std::string writePicture(const std::string& path, const JianpuReading& reading, const std::string& title) override;
    std::string print(const JianpuReading& reading, const std::string& title, bool& cancelled) override;

private:
    QWidget* parent_;
};

}  // namespace tessaly
