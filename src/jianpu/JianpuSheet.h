#pragma once
#include <string>
#include <string_view>

#include "jianpu/JianpuLayout.h"
#include "jianpu/JianpuReading.h"

namespace tessaly {

// A score's numbered notation kept up to date as its text changes: the
// reading and the layout are made again only when the text, what is in
// force at the start, or the width has changed, and only from the last line
// on when the text has grown at its end.
class JianpuSheet {
public:
    const JianpuLayout& update(std::string_view text, const JianpuStart& start, const JianpuLayoutOptions& options);

    const JianpuReading& reading() const { return reading_; }
    const JianpuLayout& layout() const { return layouter_.layout(); }
    const std::string& text() const { return text_; }
    // The note or rest whose characters hold `character` (counted from 0), or -1.
    int eventAt(int character) const;

private:
    std::string text_;
    JianpuStart start_;
    JianpuLayoutOptions options_;
    bool made_ = false;
    JianpuReading reading_;
    JianpuLayouter layouter_;
};

}  // namespace tessaly
