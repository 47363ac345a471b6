// The small file that remembers the MIDI keyboard, of arbitrary bytes, decoded
// and read as at the start. Whatever it holds, the name read is one line, and
// written back it reads the same.
#include <cstdint>
#include <string>

#include "FuzzProgram.h"
#include "performance/MidiKeyboard.h"
#include "runtime/TextFiles.h"

using namespace tessaly;
using tessaly::fuzz::fail;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::string name;
    try {
        name = rememberedKeyboardIn(decodeText(bytes));
    } catch (...) {
        fail();
    }
    if (name.find_first_of("\r\n") != std::string::npos) fail();
    if (rememberedKeyboardIn(rememberedKeyboardText(name)) != name) fail();
    return 0;
}
