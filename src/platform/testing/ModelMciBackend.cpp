#include "platform/testing/ModelMciBackend.h"

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace tessaly {

bool ModelMciBackend::openFile(const std::string& path, bool) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && std::filesystem::file_size(path, error) > 0;
}

namespace {

void put16(std::ofstream& out, uint32_t value) { out.put(static_cast<char>(value & 0xFF)).put(static_cast<char>(value >> 8)); }
void put32(std::ofstream& out, uint32_t value) {
    put16(out, value & 0xFFFF);
    put16(out, value >> 16);
}

}  // namespace

bool ModelMciBackend::saveTake(const std::string& path, const MciWaveFormat& format) {
    // A silent take: the header of a PCM WAV file with no frames.
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    const auto bytesPerFrame = static_cast<uint32_t>(format.channels * format.bits / 8);
    out << "RIFF";
    put32(out, 36);
    out << "WAVEfmt ";
    put32(out, 16);
    put16(out, 1);
    put16(out, static_cast<uint32_t>(format.channels));
    put32(out, static_cast<uint32_t>(format.rate));
    put32(out, static_cast<uint32_t>(format.rate) * bytesPerFrame);
    put16(out, bytesPerFrame);
    put16(out, static_cast<uint32_t>(format.bits));
    out << "data";
    put32(out, 0);
    return static_cast<bool>(out.flush());
}

}  // namespace tessaly
