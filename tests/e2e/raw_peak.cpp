// Peak level of a raw float stream (as SDL's disk audio driver writes it)
// before and after a byte offset: "raw_peak FILE OFFSET" prints "BEFORE AFTER".
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: raw_peak FILE OFFSET\n");
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::size_t split = std::strtoull(argv[2], nullptr, 10) / sizeof(float);
    std::size_t count = bytes.size() / sizeof(float);
    const auto* samples = reinterpret_cast<const float*>(bytes.data());
    float before = 0, after = 0;
    for (std::size_t i = 0; i < count; ++i) {
        float level = std::fabs(samples[i]);
        float& peak = i < split ? before : after;
        if (level > peak) peak = level;
    }
    std::printf("%g %g\n", static_cast<double>(before), static_cast<double>(after));
    return 0;
}
