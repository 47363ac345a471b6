#include "notation/NoteVocabulary.h"

namespace tessaly {

const std::array<NoteKey, kNoteTokenCount> kNoteKeys{{
    {54, "6", "LC", 0, 401},   {55, "7", "LD", 2, 402},   {56, "8", "LE", 4, 403},   {57, "9", "LF", 5, 404},
    {48, "0", "LG", 7, 405},   {189, "-", "LA", 9, 406},  {187, "=", "LB", 11, 407},
    {84, "T", "WC", 12, 408},  {89, "Y", "WD", 14, 409},  {85, "U", "WE", 16, 410},  {73, "I", "WF", 17, 411},
    {79, "O", "WG", 19, 412},  {80, "P", "WA", 21, 413},  {219, "[", "WB", 23, 414},
    {71, "G", "KC", 24, 415},  {72, "H", "KD", 26, 416},  {74, "J", "KE", 28, 417},  {75, "K", "KF", 29, 418},
    {76, "L", "KG", 31, 419},  {186, ";", "KA", 33, 420}, {222, "'", "KB", 35, 421},
    {86, "V", "HC", 36, 422},  {66, "B", "HD", 38, 423},  {78, "N", "HE", 40, 424},  {77, "M", "HF", 41, 425},
    {188, ",", "HG", 43, 426}, {190, ".", "HA", 45, 427}, {191, "/", "HB", 47, 428},
    {49, "1", "MC", 48, 429},  {50, "2", "MD", 50, 430},  {51, "3", "ME", 52, 431},  {52, "4", "MF", 53, 432},
    {53, "5", "MG", 55, 433},
}};

const std::array<TonalityKey, 7> kTonalityKeys{{
    {65, 36, "C调", 0}, {83, 38, "D调", 2}, {68, 40, "E调", 4}, {70, 41, "F调", 5},
    {90, 43, "G调", 7}, {88, 45, "A调", 9}, {67, 46, "bB调", 10},
}};

const std::array<QuickKey, 4> kQuickKeys{{{81, 12}, {87, 55}, {69, 26}, {82, 119}}};

const std::array<const char*, 12> kTonalityNames{"C", "bD", "D", "bE", "E", "F", "bG", "G", "bA", "A", "bB", "B"};

namespace {

const char* registerWord(char letter) {
    switch (letter) {
    case 'L': return "最低音";
    case 'W': return "低音";
    case 'K': return "中音";
    case 'H': return "高音";
    case 'M': return "最高音";
    }
    return "";
}

const char* sungName(char letter) {
    switch (letter) {
    case 'C': return "哆";
    case 'D': return "唻";
    case 'E': return "咪";
    case 'F': return "法";
    case 'G': return "嗦";
    case 'A': return "啦";
    case 'B': return "希";
    }
    return "";
}

}  // namespace

std::optional<int> tokenOffset(std::string_view token) {
    for (const NoteKey& key : kNoteKeys)
        if (token == key.token) return key.offset;
    return std::nullopt;
}

int noteCode(std::string_view token) {
    if (auto offset = tokenOffset(token)) return *offset;
    if (token == "XZ") return kRestCode;
    if (token.size() == 2) {
        std::size_t step = std::string_view("CDEFGAB").find(token[0]);
        std::size_t chordRegister = std::string_view("LCM").find(token[1]);
        if (step != std::string_view::npos && chordRegister != std::string_view::npos)
            return 65 + static_cast<int>(chordRegister * 7 + step);
    }
    return kStopCode;
}

bool isWhiteKey(int offset) {
    switch (((offset % 12) + 12) % 12) {
    case 0: case 2: case 4: case 5: case 7: case 9: case 11: return true;
    }
    return false;
}

std::string noteTipString(int id) {
    for (const NoteKey& key : kNoteKeys) {
        if (key.tipId != id) continue;
        // Only the tips of keys 6 and 8 have no blank before the key's label.
        std::string first = (id == 401 || id == 403) ? "" : " ";
        first += key.label;
        first += " 键";
        std::string second = std::string(registerWord(key.token[0])) + "（" + sungName(key.token[1]) + "）";
        std::string third = std::string("乐谱中用 ") + key.token + " 表示";
        return first + "\r\n" + second + "\r\n" + third;
    }
    return {};
}

}  // namespace tessaly
