#pragma once
#include <string>
#include <vector>

namespace tessaly::audio {

// Where the built-in synthesizer finds its SoundFont.
struct SoundFontChoice {
    std::string appDir;        // the application data folder; its "音源" folder is searched first
    std::string overridePath;  // when set, this file and nothing else
};

// The SoundFonts installed with the system, best first.
inline const std::vector<std::string>& systemSoundFonts() {
    static const std::vector<std::string> paths{"/usr/share/sounds/sf2/FluidR3_GM.sf2",
                                                "/usr/share/sounds/sf2/TimGM6mb.sf2"};
    return paths;
}

// The file to load: the override; else the first .sf2 (by name) in the
// user's "音源" folder, so a better SoundFont can simply be dropped in; else
// the first system SoundFont that exists. Empty when there is none.
std::string locateSoundFont(const SoundFontChoice& choice,
                            const std::vector<std::string>& fallbacks = systemSoundFonts());

}  // namespace tessaly::audio
