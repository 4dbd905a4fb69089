#pragma once

class QUrl;
class QWebFrame;

// True when a page of frames may show that address in that frame of it: no frame shows what one
// around it shows, and neither do they lie too deep within each other nor are they too many.
bool mayShowInFrame(const QWebFrame *pFrame, const QUrl &url);
