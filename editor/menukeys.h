#pragma once

class QChar;
class QMenuBar;

// Opens the first menu of the bar whose title begins with the letter. If titles are in another
// script, the English title counts. While one of these menus is open, it opens the next one. False,
// and nothing is opened, when there is none.
bool openMenuOfLetter(QMenuBar *pBar, QChar cLetter);
