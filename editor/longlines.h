#pragma once

// What becomes of lines that the widget shows only with long pauses: the user is asked, they are
// shown all the same, or cut into pieces.
enum class LongLines { Ask, Whole, InPieces };
