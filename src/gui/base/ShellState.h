#pragma once

namespace velto {

// What the main frame decides for every project window at once.
struct ShellState {
    // The views show the mind map instead of the timeline.
    bool mindMapMode = false;
    // The note formatting buttons are shown.
    bool noteToolbar = true;
};

} // namespace velto
