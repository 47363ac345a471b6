#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>

#include "app/script/ScriptDriver.h"

int main(int argc, char** argv) {
    tessaly::ScriptOptions options;
    if (const char* soundFont = std::getenv("TESSALY_SOUNDFONT")) options.soundFont = soundFont;
    const char* scriptPath = nullptr;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--appdir") == 0 && i + 1 < argc) options.appDir = argv[++i];
        else if (std::strcmp(argv[i], "--synth") == 0) options.synth = true;
        else if (std::strcmp(argv[i], "--wav") == 0 && i + 1 < argc) options.wavPath = argv[++i];
        else if (argv[i][0] == '-' && argv[i][1] != '\0') {
            std::cout << "error: unknown option " << argv[i] << "\n"
                      << "usage: tessaly-script [--appdir DIR] [--synth] [--wav PATH] [SCRIPT]\n";
            return 2;
        } else scriptPath = argv[i];
    }
    std::ifstream file;
    if (scriptPath) {
        file.open(scriptPath);
        if (!file) {
            std::cout << "error: cannot read " << scriptPath << "\n";
            return 2;
        }
    }
    tessaly::ScriptDriver driver(options, std::cout);
    return driver.run(scriptPath ? static_cast<std::istream&>(file) : std::cin);
}
