#include "analysis/ImportState.h"

#include "forms/VariableAccessors.h"

namespace tessaly {

void registerImportState(ControlSystem& controls, ImportState& state) {
    controls.registerVariable("ImportSlot", scalar(state.ImportSlot));
    controls.registerVariable("ImportDuration", scalar(state.ImportDuration));
}

}  // namespace tessaly
