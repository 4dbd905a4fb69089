#pragma once

class QChar;
class QMenuBar;

// Opens the first menu of the bar that begins with the letter, by the title shown or, where titles
// are written in another script, by the English one; while one of them is open, the next of them.
// False, and nothing is opened, when there is none.
bool openMenuOfLetter(QMenuBar *pBar, QChar cLetter);
