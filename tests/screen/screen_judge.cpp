// Judges an area of a picture of the whole screen, as a reader would:
//
//   screen_judge readable PICTURE X Y W H
//       the area is text on a plain ground: most of it one light (or dark)
//       ground, and enough pixels of the opposite kind to be letters
//   screen_judge contrast PICTURE X Y W H MINIMUM
//       the contrast ratio of the text in the area against the ground behind
//       it (relative luminance, (L1 + 0.05) / (L2 + 0.05)) is at least MINIMUM
//   screen_judge alike PICTURE_A PICTURE_B X Y W H
//       the area is the same in both pictures but for antialiasing
//   screen_judge same-letters PICTURE_A PICTURE_B X Y W H
//       the golden letters in the area cover the same pixels in both pictures,
//       whatever lies around them
//
// Prints what it measured and exits 0 when the area passes, 1 when it does not.
#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

double channel(int value) {
    const double c = value / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminance(QRgb pixel) {
    return 0.2126 * channel(qRed(pixel)) + 0.7152 * channel(qGreen(pixel)) + 0.0722 * channel(qBlue(pixel));
}

double contrastRatio(double a, double b) { return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05); }

bool loadArea(const char* path, const char* const* place, QImage& area) {
    QImage picture(QString::fromLocal8Bit(path));
    if (picture.isNull()) {
        std::fprintf(stderr, "cannot read %s\n", path);
        return false;
    }
    const QRect rect(std::atoi(place[0]), std::atoi(place[1]), std::atoi(place[2]), std::atoi(place[3]));
    if (rect.isEmpty() || !picture.rect().contains(rect)) {
        std::fprintf(stderr, "the area %d,%d %dx%d is not on the %dx%d picture\n", rect.x(), rect.y(), rect.width(),
                     rect.height(), picture.width(), picture.height());
        return false;
    }
    area = picture.copy(rect).convertToFormat(QImage::Format_RGB32);
    return true;
}

std::vector<double> luminances(const QImage& area) {
    std::vector<double> out;
    for (int y = 0; y < area.height(); ++y)
        for (int x = 0; x < area.width(); ++x) out.push_back(luminance(area.pixel(x, y)));
    return out;
}

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

// Text on a plain ground: the ground is the middle of the pixels; letters are
// the pixels far from it, in the opposite direction, and there must be some.
int readable(const QImage& area) {
    const std::vector<double> lum = luminances(area);
    const double ground = median(lum);
    const bool lightGround = ground > 0.5;
    std::size_t letters = 0;
    for (double l : lum)
        if (contrastRatio(l, ground) >= 4.5 && (lightGround ? l < ground : l > ground)) ++letters;
    const double share = static_cast<double>(letters) / static_cast<double>(lum.size());
    const bool plainGround = lightGround ? ground > 0.6 : ground < 0.08;
    std::printf("ground luminance %.3f (%s), letter pixels %.2f %%\n", ground, lightGround ? "light" : "dark",
                100.0 * share);
    return plainGround && share >= 0.005 && share <= 0.5 ? 0 : 1;
}

// The ground is the median; the text is the 98th percentile of the pixels'
// distance from it, so that antialiased edges do not count as the ink.
int contrast(const QImage& area, double minimum) {
    const std::vector<double> lum = luminances(area);
    const double ground = median(lum);
    std::vector<double> distance;
    for (double l : lum) distance.push_back(contrastRatio(l, ground));
    std::sort(distance.begin(), distance.end());
    const double ratio = distance[distance.size() * 98 / 100];
    std::printf("ground luminance %.3f, text contrast %.2f : 1 (at least %.2f)\n", ground, ratio, minimum);
    return ratio >= minimum ? 0 : 1;
}

int alike(const QImage& a, const QImage& b) {
    double total = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            total += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    const double mean = total / (3.0 * a.width() * a.height());
    std::printf("mean difference %.2f of 255\n", mean);
    return mean <= 4.0 ? 0 : 1;
}

bool golden(QRgb p) { return qRed(p) > 190 && qGreen(p) > 100 && qBlue(p) < 110 && qRed(p) - qBlue(p) > 120; }

// The letters of both pictures, as the share of their pixels that are letters in both.
int sameLetters(const QImage& a, const QImage& b) {
    std::size_t inA = 0, inB = 0, inBoth = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const bool ga = golden(a.pixel(x, y)), gb = golden(b.pixel(x, y));
            inA += ga;
            inB += gb;
            inBoth += ga && gb;
        }
    const std::size_t either = inA + inB - inBoth, area = static_cast<std::size_t>(a.width()) * a.height();
    const double overlap = either ? static_cast<double>(inBoth) / static_cast<double>(either) : 0.0;
    std::printf("letter pixels %zu and %zu, %.1f %% of them in both\n", inA, inB, 100.0 * overlap);
    return inA * 100 >= area && inB * 100 >= area && overlap >= 0.9 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string command = argc > 1 ? argv[1] : "";
    QImage area, other;
    if (command == "readable" && argc == 7 && loadArea(argv[2], argv + 3, area)) return readable(area);
    if (command == "contrast" && argc == 8 && loadArea(argv[2], argv + 3, area))
        return contrast(area, std::atof(argv[7]));
    if (command == "alike" && argc == 8 && loadArea(argv[2], argv + 4, area) && loadArea(argv[3], argv + 4, other))
        return alike(area, other);
    if (command == "same-letters" && argc == 8 && loadArea(argv[2], argv + 4, area) &&
        loadArea(argv[3], argv + 4, other))
        return sameLetters(area, other);
    if (command != "readable" && command != "contrast" && command != "alike" && command != "same-letters")
        std::fprintf(stderr, "usage: screen_judge readable|contrast|alike|same-letters ...\n");
    return 2;
}
