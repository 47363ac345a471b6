#include "notation/KeyTables.h"

#include "notation/NoteVocabulary.h"

namespace tessaly {

void YFSZDY(KeyTables& tables) {
    for (const NoteKey& key : kNoteKeys) tables.KeyNoteOffset[key.keyCode] = key.offset;
    for (const TonalityKey& key : kTonalityKeys) tables.KeyNoteOffset[key.keyCode] = key.noteBase;
    for (const QuickKey& key : kQuickKeys) tables.KeyNoteOffset[key.keyCode] = key.listIndex;
}

void YFDHDY(KeyTables& tables) {
    for (const NoteKey& key : kNoteKeys) tables.KeyNoteName[key.keyCode] = key.token;
    for (const TonalityKey& key : kTonalityKeys) tables.KeyNoteName[key.keyCode] = key.caption;
}

void YFXSDY(KeyTables& tables) {
    for (const NoteKey& key : kNoteKeys) tables.KeyTipId[key.keyCode] = key.tipId;
    for (const TonalityKey& key : kTonalityKeys) tables.KeyTipId[key.keyCode] = key.tonalityIndex;
}

bool isNoteKey(int keyCode) {
    for (const NoteKey& key : kNoteKeys)
        if (key.keyCode == keyCode) return true;
    return false;
}

}  // namespace tessaly
