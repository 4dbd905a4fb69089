#pragma once

class QUrl;
class QWebFrame;

// True when a page may show that address in that frame: no frame around it shows the same, frames
// are not nested too deeply, and there are not too many.
bool mayShowInFrame(const QWebFrame *pFrame, const QUrl &url);
