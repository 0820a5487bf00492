#pragma once
// The RTF note of a node. Copies share one unchangeable text, so the undo copy of a large project
// costs a reference per note instead of a copy of every note; giving a node a new note gives it
// its own text and leaves the copies alone.
#include "model/SharedText.h"

namespace velto {

using NoteText = SharedText;

} // namespace velto
