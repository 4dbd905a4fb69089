#pragma once

// How to treat lines that the widget can show only with long pauses: ask the user, show them all
// the same, or cut them into pieces.
enum class LongLines { Ask, Whole, InPieces };
