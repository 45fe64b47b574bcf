#include "probes.h"

#include <map>

namespace lumrake::bench {

Editor& EditorOf(benchmark::State& state, int zoom) {
    static std::map<int, Editor*> editors; // never deleted: the toolkit goes before static variables
    Editor*& editor = editors[zoom];
    if (editor == nullptr) {
        editor = new Editor(zoom);
    }
    if (!editor->opened) {
        state.SkipWithError("the window doesn't open in its size");
    }
    return *editor;
}

} // namespace lumrake::bench
