#pragma once

#include <QString>

// What an HTML text says about its own encoding. Pure functions, no widgets.

// The text with every declaration of another encoding (meta charset, meta http-equiv content-type,
// XML declaration) changed to "utf-8", for writing as UTF-8. Nothing is added where nothing is
// declared, and a declaration of UTF-8 stays as it is spelled.
QString declareUtf8(const QString &strHtml);
