#include "ui/KeyMapPicture.h"

#include <QFont>
#include <QPainter>
#include <string>
#include <vector>

#include "notation/NoteVocabulary.h"

namespace tessaly {

namespace {

enum class Role { Lowest, Low, Middle, High, Highest, Tonality, Instrument, Effect, Percussion, Function, None };

struct RoleStyle {
    Role role;
    QColor fill;
    const char* legend;
};

const RoleStyle kRoles[] = {
    {Role::Lowest, QColor(0x6a, 0x4c, 0x93), "最低音 L"},  {Role::Low, QColor(0x2f, 0x6f, 0xb5), "低音 W"},
    {Role::Middle, QColor(0x2e, 0x8b, 0x57), "中音 K"},    {Role::High, QColor(0xd0, 0x7a, 0x1e), "高音 H"},
    {Role::Highest, QColor(0xc0, 0x39, 0x2b), "最高音 M"}, {Role::Tonality, QColor(0x17, 0x9a, 0x9c), "调号"},
    {Role::Instrument, QColor(0xb8, 0x96, 0x1a), "乐器"},  {Role::Effect, QColor(0xb0, 0x4f, 0x8f), "音效"},
    {Role::Percussion, QColor(0x8a, 0x5a, 0x3c), "打击乐"}, {Role::Function, QColor(0x4f, 0x5d, 0x73), "功能"},
    {Role::None, QColor(0x2a, 0x30, 0x3a), nullptr},
};

QColor fillOf(Role role) {
    for (const RoleStyle& style : kRoles)
        if (style.role == role) return style.fill;
    return Qt::gray;
}

// One key cap: what is printed on it, what it does, and its width in keys.
struct Cap {
    std::string label;
    std::string action;
    Role role;
    double width = 1.0;
};

Role registerRole(char letter) {
    switch (letter) {
    case 'L': return Role::Lowest;
    case 'W': return Role::Low;
    case 'K': return Role::Middle;
    case 'H': return Role::High;
    default: return Role::Highest;
    }
}

// A typing key by its label: a note, a tonality, an instrument key or nothing.
Cap typingKey(const std::string& label) {
    for (const NoteKey& key : kNoteKeys)
        if (label == key.label) return {label, key.token, registerRole(key.token[0])};
    const char* tonalityLabels = "ASDFZXC";
    for (const TonalityKey& key : kTonalityKeys)
        if (label.size() == 1 && label[0] == tonalityLabels[&key - kTonalityKeys.data()]) return {label, key.caption, Role::Tonality};
    if (label == "Q" || label == "W" || label == "E" || label == "R") return {label, "换乐器", Role::Instrument};
    return {label, "", Role::None};
}

std::vector<Cap> typingRow(const char* labels) {
    std::vector<Cap> row;
    for (const char* c = labels; *c; ++c) row.push_back(typingKey(std::string(1, *c)));
    return row;
}

constexpr double kUnit = 40, kKeyHeight = 27, kRowStep = 29, kGap = 2;
constexpr double kMainLeft = 8, kNavLeft = 620, kPadLeft = 756, kTop = 3;

void drawCap(QPainter& p, const QRectF& r, const Cap& cap) {
    QRectF body = r.adjusted(kGap / 2, 0, -kGap / 2, 0);
    p.setPen(QPen(QColor(255, 255, 255, 60), 1));
    p.setBrush(fillOf(cap.role));
    p.drawRoundedRect(body, 4, 4);
    QFont small = p.font();
    small.setPixelSize(9);
    small.setBold(false);
    p.setFont(small);
    p.setPen(QColor(255, 255, 255, 190));
    p.drawText(body.adjusted(3, 1, -2, 0), Qt::AlignLeft | Qt::AlignTop, QString::fromStdString(cap.label));
    if (cap.action.empty()) return;
    QFont bold = small;
    bold.setPixelSize(11);
    bold.setBold(true);
    p.setFont(bold);
    p.setPen(Qt::white);
    p.drawText(body.adjusted(2, 10, -2, -1), Qt::AlignHCenter | Qt::AlignVCenter, QString::fromStdString(cap.action));
}

// Draws a row of caps from `left`, returning where it ends.
double drawRow(QPainter& p, double left, int row, const std::vector<Cap>& caps) {
    double x = left;
    for (const Cap& cap : caps) {
        drawCap(p, QRectF(x, kTop + row * kRowStep, cap.width * kUnit, kKeyHeight), cap);
        x += cap.width * kUnit;
    }
    return x;
}

void drawMainBlock(QPainter& p) {
    std::vector<Cap> functionRow = {{"Esc", "全静音", Role::Function}, {"", "", Role::None, 0.5}};
    for (int i = 1; i <= 12; ++i) {
        functionRow.push_back({"F" + std::to_string(i), "组合" + std::to_string(i), Role::Instrument});
        if (i % 4 == 0 && i < 12) functionRow.push_back({"", "", Role::None, 0.25});
    }
    // The gaps between the groups are no keys: skip them rather than draw them.
    double x = kMainLeft;
    for (const Cap& cap : functionRow) {
        if (!cap.label.empty()) drawCap(p, QRectF(x, kTop, cap.width * kUnit, kKeyHeight), cap);
        x += cap.width * kUnit;
    }

    std::vector<Cap> digits = {{"`", "", Role::None}};
    for (Cap cap : typingRow("1234567890-=")) digits.push_back(cap);
    digits.push_back({"Backspace", "休止", Role::Function, 2});
    drawRow(p, kMainLeft, 1, digits);

    std::vector<Cap> upper = {{"Tab", "", Role::None, 1.5}};
    for (Cap cap : typingRow("QWERTYUIOP[]")) upper.push_back(cap);
    upper.push_back({"\\", "", Role::None, 1.5});
    drawRow(p, kMainLeft, 2, upper);

    std::vector<Cap> home = {{"Caps", "", Role::None, 1.75}};
    for (Cap cap : typingRow("ASDFGHJKL;'")) home.push_back(cap);
    home.push_back({"Enter", "", Role::None, 2.25});
    drawRow(p, kMainLeft, 3, home);

    std::vector<Cap> lower = {{"Shift", "自动同步", Role::Function, 2.25}};
    for (Cap cap : typingRow("ZXCVBNM,./")) lower.push_back(cap);
    lower.push_back({"Shift", "自动同步", Role::Function, 2.75});
    drawRow(p, kMainLeft, 4, lower);

    drawRow(p, kMainLeft, 5,
            {{"Ctrl", "", Role::None, 1.5}, {"Alt", "", Role::None, 1.5},
             {"Space", "停止演奏", Role::Function, 9}, {"Alt", "", Role::None, 1.5}, {"Ctrl", "", Role::None, 1.5}});
}

void drawEffectKeys(QPainter& p) {
    drawRow(p, kNavLeft, 1, {{"Ins", "音效1", Role::Effect}, {"Home", "音效2", Role::Effect}, {"PgUp", "音效3", Role::Effect}});
    drawRow(p, kNavLeft, 2, {{"Del", "音效4", Role::Effect}, {"End", "音效5", Role::Effect}, {"PgDn", "音效6", Role::Effect}});
}

void drawKeypad(QPainter& p) {
    const double w = kUnit;
    auto at = [&](double column, int row, double width, double height, const Cap& cap) {
        drawCap(p, QRectF(kPadLeft + column * w, kTop + row * kRowStep, width * w, height), cap);
    };
    const Cap none{"", "", Role::None};
    at(0, 1, 1, kKeyHeight, {"Num", "", Role::None});
    at(1, 1, 1, kKeyHeight, {"/", "", Role::None});
    at(2, 1, 1, kKeyHeight, {"*", "", Role::None});
    at(3, 1, 1, kKeyHeight, {"-", "节奏停", Role::Function});
    const char* digitRows[3][3] = {{"7", "8", "9"}, {"4", "5", "6"}, {"1", "2", "3"}};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            at(column, row + 2, 1, kKeyHeight, {digitRows[row][column], "打击乐", Role::Percussion});
    at(3, 2, 1, kKeyHeight + kRowStep, {"+", "节奏起", Role::Function});
    at(3, 4, 1, kKeyHeight + kRowStep, {"Enter", "", Role::None});
    at(0, 5, 2, kKeyHeight, {"0", "打击乐", Role::Percussion});
    at(2, 5, 1, kKeyHeight, {".", "停音效", Role::Effect});
    (void)none;
}

void drawLegend(QPainter& p) {
    QFont font = p.font();
    font.setPixelSize(11);
    font.setBold(false);
    p.setFont(font);
    const double top = kTop + 6 * kRowStep + 2;
    double x = kMainLeft;
    for (const RoleStyle& style : kRoles) {
        if (!style.legend) continue;
        p.setPen(Qt::NoPen);
        p.setBrush(style.fill);
        p.drawRoundedRect(QRectF(x, top + 2, 14, 11), 2, 2);
        p.setPen(QColor(0xe6, 0xee, 0xf7));
        const QString text = QString::fromUtf8(style.legend);
        p.drawText(QPointF(x + 18, top + 12), text);
        x += 26 + p.fontMetrics().horizontalAdvance(text);
    }
    p.drawText(QPointF(x + 12, top + 12), QStringLiteral("音符键：C D E F G A B 即 哆 唻 咪 法 嗦 啦 希"));
}

}  // namespace

void drawKeyMap(QPainter& p, const QRectF& area) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.translate(area.topLeft());
    p.scale(area.width() / kKeyMapWidth, area.height() / kKeyMapHeight);
    p.setPen(QPen(QColor(255, 255, 255, 70), 1));
    p.setBrush(QColor(0x10, 0x18, 0x26));
    p.drawRoundedRect(QRectF(0.5, 0.5, kKeyMapWidth - 1, kKeyMapHeight - 1), 8, 8);
    drawMainBlock(p);
    drawEffectKeys(p);
    drawKeypad(p);
    drawLegend(p);
    p.restore();
}

}  // namespace tessaly
