#pragma once

#include <QByteArray>
#include <QString>

// The encoding that an HTML text declares. Pure functions, no widgets.

// The text with every declaration of another encoding (meta charset, meta http-equiv content-type,
// XML declaration) changed to "utf-8", for writing as UTF-8. Nothing is added where nothing is
// declared, and a declaration of UTF-8 stays as it is spelled.
QString declareUtf8(const QString &strHtml);

// The name of the encoding that the text declares: the first of XML declaration, meta charset and
// meta http-equiv content-type. Empty when it declares none.
QString declaredCharset(const QString &strHtml);
