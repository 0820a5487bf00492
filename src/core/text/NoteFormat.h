#pragma once

// The size rule of the note pane's "Text größer" and "Text kleiner" buttons, apart from any widget.
namespace velto::rtf {

// How far one press of a size button moves the size.
inline constexpr int kSizeStepPoints = 2;

// The size in whole points (an odd half point is dropped, towards zero, as integer twips / 20 drop it),
// moved by points, back in half points. There is deliberately no bound: a note may shrink to 0 pt and
// below, and only the display refuses such sizes. At the ends of int the size saturates instead of
// overflowing, since a file may carry any size.
int StepSize(int halfPoints, int points);

} // namespace velto::rtf
