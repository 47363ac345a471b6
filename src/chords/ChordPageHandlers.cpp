#include "chords/ChordPageHandlers.h"

#include <algorithm>
#include <vector>

#include "chords/ChordLayers.h"
#include "chords/ChordState.h"
#include "chords/ChordTables.h"
#include "chords/PatternFile.h"
#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "platform/Platform.h"
#include "runtime/Arithmetic.h"
#include "runtime/FileAccess.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

namespace {

// The most digits an order can have: one for each place of ChordDegrees.
constexpr std::size_t kMaxOrderDigits = 9;

std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

std::string lastChars(const std::string& text, std::size_t count) {
    const std::size_t length = charLength(text);
    return length <= count ? text : charSubstr(text, length - count);
}

}  // namespace

ChordPageHandlers::ChordPageHandlers(Platform& platform, SharedState& state, ChordState& chords, MidiOut& midi,
                                     MainWindow& form, ChordLayers& layers)
    : draw(platform.loop), platform_(platform), state_(state), chords_(chords), midi_(midi), form_(form),
      layers_(layers) {}

void ChordPageHandlers::wire() {
    ChordPage& page = form_.chordPage;
    page.Command3.onClick = [this] { Command3_Click(); };
    page.Command4.onClick = [this] { Command4_Click(); };
    page.Text4.onLostFocus = [this] { Text4_LostFocus(); };
    page.Text5.onLostFocus = [this] { Text5_LostFocus(); };
    page.Text7.onLostFocus = [this] { Text7_LostFocus(); };
    page.Text6.onGotFocus = [this] { Text6_GotFocus(); };
    page.Text6.onLostFocus = [this] { Text6_LostFocus(); };
    form_.HxYL.onClick = [this] { HxYL_Click(); };
    form_.HxYL.onChange = [this] { HxYL_Click(); };
    ComboBox* lists[] = {&form_.Combo1, &form_.Combo2, &form_.Combo3};
    for (int layer = 1; layer <= 3; ++layer) {
        lists[layer - 1]->onClick = [this, layer] { Combo_Click(layer); };
        lists[layer - 1]->onChange = [this, layer] { Combo_Click(layer); };
    }
    // The rhythm page's instrument list sets channel 3 as well.
    form_.xuanyue.onClick = [this] { xuanyue_Click(); };
    form_.xuanyue.onChange = [this] { xuanyue_Click(); };
}

void ChordPageHandlers::drawOrder() {
    TextBox& order = form_.chordPage.Text6;
    order.setText(chords_.ChordOrderList[draw.draw(13)]);
    state_.ChordCount = toInt16(static_cast<long long>(order.length()));
    for (long i = 1; i <= state_.ChordCount; ++i)
        chords_.ChordDegrees[i] = roundToInt16(numericValue(charSubstr(order.text(), static_cast<std::size_t>(i - 1), 1)));
    state_.ChordIndex = 1;
}

void ChordPageHandlers::CSHX() {
    fillChordOrderList(chords_);
    drawOrder();
    HXCSH();
    layers_.HXYPSB();
    layers_.HXJS();
}

void ChordPageHandlers::rebuildAtActivation() {
    state_.StepsPerChord = 8;
    CSHX();
    rememberFigures();
}

void ChordPageHandlers::HXCSH() {
    ChordPage& page = form_.chordPage;
    PatternFile file(state_.AppDir);
    // The start that creates the file keeps the figures the boxes hold, through
    // the rebuild of its first activation too: the draws begin with the next one.
    if (!file.exists()) {
        file.create();
        keepDefaultFigures_ = true;
        return;
    }
    if (keepDefaultFigures_) {
        keepDefaultFigures_ = false;
        return;
    }
    const long count = file.readInto(chords_);
    // The three draws happen whatever the locks say, and take a line as it stands.
    std::string line = chords_.PatternLines[draw.draw(count)];
    if (page.Check7.value() == 0) page.Text5.setText(line);
    line = chords_.PatternLines[draw.draw(count)];
    if (page.Check4.value() == 0) {
        page.Text2.setText(line + page.Text5.text());
        page.Text4.setText(line);
    }
    line = chords_.PatternLines[draw.draw(count)];
    if (page.Check9.value() == 0) page.Text7.setText(line);
}

void ChordPageHandlers::Command3_Click() {
    // The locks keep figures, never the order: a new order is always drawn.
    fillChordOrderList(chords_);
    state_.StepsPerChord = 8;
    drawOrder();
    HXCSH();
    layers_.HXYPSB();
    layers_.HXJS();
    rememberFigures();
}

void ChordPageHandlers::Command4_Click() {
    PatternFile file(state_.AppDir);
    if (!file.exists()) return;
    const long count = file.readInto(chords_);
    ChordPage& page = form_.chordPage;
    std::vector<std::string> fresh;
    for (TextBox* box : {&page.Text4, &page.Text5, &page.Text7}) {
        bool known = false;
        for (long i = 1; i <= count && !known; ++i) known = chords_.PatternLines[i] == box->text();
        if (!known) fresh.push_back(box->text());
    }
    // The file is kept as it was when the figures cannot be added.
    int error = 0;
    if (!fresh.empty() && !file.append(fresh, &error))
        platform_.boxes.timedBox("提示", "无法保存和弦节奏：" + fileFailureMessage(file.path(), error), 5000);
}

void ChordPageHandlers::normaliseFigure(TextBox& box, bool showInText2) {
    std::string figure = upperCase(box.text());
    const std::size_t length = charLength(figure);
    if (length < 16) figure += std::string(16 - length, '-');
    std::replace(figure.begin(), figure.end(), ' ', '-');
    box.setText(figure);
    ChordPage& page = form_.chordPage;
    if (showInText2) page.Text2.setText(page.Text4.text() + page.Text5.text());
    rememberFigures();
}

// No token is checked: an unknown pair holds. The steps are not rebuilt here.
void ChordPageHandlers::Text4_LostFocus() { normaliseFigure(form_.chordPage.Text4, true); }
void ChordPageHandlers::Text5_LostFocus() { normaliseFigure(form_.chordPage.Text5, false); }
void ChordPageHandlers::Text7_LostFocus() { normaliseFigure(form_.chordPage.Text7, true); }

void ChordPageHandlers::rememberFigures() {
    ChordPage& page = form_.chordPage;
    chords_.SavedPatterns[1] = page.Text4.text();
    chords_.SavedPatterns[2] = page.Text5.text();
    chords_.SavedPatterns[3] = page.Text7.text();
}

void ChordPageHandlers::Text6_GotFocus() { orderAtFocus_ = form_.chordPage.Text6.text(); }

void ChordPageHandlers::Text6_LostFocus() {
    TextBox& order = form_.chordPage.Text6;
    const std::string text = order.text();
    const std::size_t length = charLength(text);
    // More digits than the table holds: refused, and everything stays as it was.
    if (length > kMaxOrderDigits) {
        platform_.boxes.timedBox("提示", kOrderTooLong, 5000);
        order.setText(orderAtFocus_);
        return;
    }
    // A refused order leaves ChordCount at its own length.
    state_.ChordCount = static_cast<int16_t>(length);
    std::vector<int16_t> digits;
    for (std::size_t i = 0; i < length; ++i) {
        const double value = numericValue(charSubstr(text, i, 1));
        if (value < 1 || value > 7) {
            order.setText(orderAtFocus_);
            return;
        }
        digits.push_back(static_cast<int16_t>(value));
    }
    for (std::size_t i = 0; i < digits.size(); ++i) chords_.ChordDegrees[static_cast<long>(i) + 1] = digits[i];
    state_.ChordIndex = 1;
    layers_.HXYPSB();
    layers_.HXJS();
}

void ChordPageHandlers::HxYL_Click() {
    midi_.ChannelVelocity[3] = roundToInt16(numericValue(form_.HxYL.text()));
}

void ChordPageHandlers::Combo_Click(int layer) {
    ComboBox* lists[] = {&form_.Combo1, &form_.Combo2, &form_.Combo3};
    midi_.SetProgram(toInt16(2 + layer), 0, toInt16(lists[layer - 1]->listIndex() - 1));
}

void ChordPageHandlers::xuanyue_Click() {
    midi_.SetProgram(3, 0, toInt16(form_.xuanyue.listIndex() - 1));
}

void ChordPageHandlers::enterChordTab() {
    parseVoicingTable(chords_);
    layers_.HXJS();
}

void ChordPageHandlers::metreChanged(bool threeFour) {
    ChordPage& page = form_.chordPage;
    TextBox* boxes[] = {&page.Text4, &page.Text5, &page.Text7};
    // SavedPatterns stays: the first four characters come back with 4/4.
    for (long layer = 1; layer <= 3; ++layer) {
        const std::string& saved = chords_.SavedPatterns[layer];
        boxes[layer - 1]->setText(threeFour ? lastChars(saved, 12) : saved);
    }
    state_.StepsPerChord = threeFour ? 6 : 8;
    layers_.HXYPSB();
    layers_.HXJS();
}

}  // namespace tessaly
