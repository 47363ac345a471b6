#include "performance/ShortcutPage.h"

#include <filesystem>

#include "forms/MainWindow.h"
#include "midi/MidiOut.h"
#include "performance/EffectKeys.h"
#include "platform/Platform.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"
#include "state/SharedState.h"

namespace tessaly {

void ShortcutPage::wire() {
    for (auto& [index, option] : form_.Option3) {
        int i = static_cast<int>(index);
        option->onClick = [this, i] { Option3_Click(i); };
    }
    for (auto& [index, list] : form_.YQSZ) {
        int i = static_cast<int>(index);
        list->onClick = [this, i] { YQSZ_Click(i); };
        list->onChange = [this, i] { YQSZ_Click(i); };
    }
    form_.File2.onClick = [this] { File2_Click(); };
}

int ShortcutPage::chosenKey() const {
    for (int i = 0; i <= 27; ++i)
        if (form_.Option3[i].value()) return i;
    return -1;
}

void ShortcutPage::showInstrumentLists() {
    for (int j = 0; j < 3; ++j) form_.YQSZ[j].setVisible(true);
    form_.YQSZ[3].setVisible(false);
    form_.File2.setVisible(false);
}

void ShortcutPage::effectsFolder() {
    // Pointing the list at the folder it shows would read it afresh and lose the choice.
    std::string folder = state_.AppDir + "音效/";
    if (form_.File2.path() != folder) form_.File2.setPath(folder);
}

void ShortcutPage::Option3_Click(int Index) {
    if (Index <= 11) {
        showInstrumentLists();
        for (int j = 0; j < 3; ++j) form_.YQSZ[j].setListIndex(state_.InstrumentSet(Index, j));
    } else if (Index <= 21) {
        form_.YQSZ[3].setVisible(true);
        for (int j = 0; j < 3; ++j) form_.YQSZ[j].setVisible(false);
        form_.File2.setVisible(false);
        // A changed index runs YQSZ_Click(3), which sets KeypadIndex; an
        // unchanged one leaves it, and the digit played last sounds.
        form_.YQSZ[3].setListIndex(state_.KeypadPercussion[Index - 12]);
        midi_.PlayKeypadPercussion();
    } else {
        for (int j = 0; j < 4; ++j) form_.YQSZ[j].setVisible(false);
        form_.File2.setVisible(true);
        const std::string& name = state_.EffectFile[Index - 22];
        if (effects_.playEffectFile(name)) form_.XSWB.setCaption(name + "_音效");
    }
}

void ShortcutPage::YQSZ_Click(int Index) {
    int key = chosenKey();
    if (key < 0 || key > 21) return;
    int listIndex = form_.YQSZ[Index].listIndex();
    if (key <= 11) {
        // Only stored: the set sounds when its F key is pressed.
        state_.InstrumentSet(key, Index) = toInt16(listIndex);
        return;
    }
    int digit = key - 12;
    state_.KeypadPercussion[digit] = toInt16(listIndex);
    // A digit set here strikes at the rhythm page's volume.
    long long velocity = static_cast<long long>(numericValue(form_.VsbVol.text()));
    midi_.StepTable[digit][5].ShortMsg = toInt32(velocity * 65536 + (state_.KeypadPercussion[digit] + 35) * 256 + 153);
    state_.KeypadIndex = toInt16(digit);
    midi_.PlayKeypadPercussion();
}

void ShortcutPage::File2_Click() {
    int chosen = form_.File2.listIndex();
    if (chosen < 0) return;
    std::string name = form_.File2.item(chosen);
    effectsFolder();
    platform_.wave.playSound(state_.AppDir + "音效/" + name, 1);
    form_.XSWB.setCaption(name + "_音效");
    for (int i = 22; i <= 27; ++i)
        if (form_.Option3[i].value()) state_.EffectFile[i - 22] = name;
    effects_.prepareEffects();
}

void ShortcutPage::enterShortcutTab() {
    form_.Option3[0].setValue(true);
    showInstrumentLists();
    for (int j = 0; j < 3; ++j) form_.YQSZ[j].setListIndex(state_.InstrumentSet(0, j));
    effectsFolder();
}

}  // namespace tessaly
