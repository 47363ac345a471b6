#pragma once
#include <string>

#include "chords/ChordDraw.h"

namespace tessaly {

class ChordLayers;
class MainWindow;
class MidiOut;
class TextBox;
struct ChordState;
struct Platform;
struct SharedState;

// The chord page: the order and the figures drawn at random at start-up and
// on request, typed by hand, checked when the focus leaves them, stored in
// the pattern file; the metre's part in the figures; the page's lists.
class ChordPageHandlers {
public:
    ChordPageHandlers(Platform& platform, SharedState& state, ChordState& chords, MidiOut& midi, MainWindow& form,
                      ChordLayers& layers);

    void wire();

    // Order and figures at start-up.
    void CSHX();
    // The same at every activation of the main window, from the 4/4 strides,
    // with the figures remembered afterwards.
    void rebuildAtActivation();
    // Figures drawn from the pattern file, each under its lock.
    void HXCSH();

    void Command3_Click();
    void Command4_Click();
    void Text4_LostFocus();
    void Text5_LostFocus();
    void Text7_LostFocus();
    void Text6_GotFocus();
    void Text6_LostFocus();
    void HxYL_Click();
    void Combo_Click(int layer);
    void xuanyue_Click();

    // The chord tab is opened: the voicings are read and the steps rebuilt.
    void enterChordTab();
    // The metre changed on the rhythm page: 4/4 gives the remembered figures
    // back, 3/4 keeps their last 12 characters.
    void metreChanged(bool threeFour);

    ChordDraw draw;

private:
    void drawOrder();
    void normaliseFigure(TextBox& box, bool showInText2);
    void rememberFigures();

    Platform& platform_;
    SharedState& state_;
    ChordState& chords_;
    MidiOut& midi_;
    MainWindow& form_;
    ChordLayers& layers_;
    std::string orderAtFocus_;
    bool keepDefaultFigures_ = false;
};

// Told when an order longer than the table of degrees is refused.
inline constexpr const char* kOrderTooLong = "和弦顺序最多只能有9位数字，已恢复原来的和弦顺序！";

}  // namespace tessaly
