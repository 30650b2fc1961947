// What docs/engine.md shows of an engine: reporting a position.
// Not here: an engine.
#include "engine/kest.h"

//! [tellposition]
// Tells the widget where the film is, from any thread of the engine's.
void tellPosition(const EditBeginParams &edit, unsigned int milliseconds)
{
    tagKestEvent event = {0, 1, milliseconds};
    if (edit.callback)
        edit.callback(&event, edit.userData);
}
//! [tellposition]

int main()
{
    tellPosition({}, 0);
    return 0;
}
