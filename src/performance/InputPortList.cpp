#include "performance/InputPortList.h"

#include <algorithm>

namespace tessaly {

namespace {

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

bool hasAddress(const std::vector<MidiInputPort>& ports, const std::string& address) {
    return std::any_of(ports.begin(), ports.end(), [&](const MidiInputPort& p) { return p.address == address; });
}

}  // namespace

bool InputPortList::isKeyboard(const MidiInputPort& port) const {
    // Port names read "client:port"; the pass-through echoes what others send.
    return !startsWith(port.name, ownClient_ + ":") && !startsWith(port.name, "Midi Through");
}

InputPortList::Update InputPortList::refresh(const std::vector<MidiInputPort>& ports) {
    std::vector<MidiInputPort> now;
    std::copy_if(ports.begin(), ports.end(), std::back_inserter(now),
                 [this](const MidiInputPort& p) { return isKeyboard(p); });

    Update update;
    update.entriesChanged = now != entries_;
    if (!connected_.empty() && !hasAddress(now, connected_)) {
        connected_.clear();
        update.connectionLost = true;
    }
    if (connected_.empty()) {
        std::vector<const MidiInputPort*> appeared;
        for (const MidiInputPort& port : now)
            if (!hasAddress(entries_, port.address)) appeared.push_back(&port);
        auto remembered = std::find_if(appeared.begin(), appeared.end(), [this](const MidiInputPort* p) {
            return !remembered_.empty() && p->name == remembered_;
        });
        if (remembered != appeared.end()) update.connect = (*remembered)->address;
        else if (now.size() == 1 && appeared.size() == 1) update.connect = appeared.front()->address;
    }
    entries_ = std::move(now);
    return update;
}

std::string InputPortList::choose(int listIndex) {
    if (listIndex <= 0 || listIndex > static_cast<int>(entries_.size())) {
        connected_.clear();
        remembered_.clear();
        return {};
    }
    const MidiInputPort& port = entries_[static_cast<std::size_t>(listIndex - 1)];
    connected_ = port.address;
    remembered_ = port.name;
    return connected_;
}

std::vector<std::string> InputPortList::captions() const {
    std::vector<std::string> captions{kNone};
    for (const MidiInputPort& port : entries_) captions.push_back(port.name);
    return captions;
}

int InputPortList::connectedIndex() const {
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (!connected_.empty() && entries_[i].address == connected_) return static_cast<int>(i) + 1;
    return 0;
}

}  // namespace tessaly
