#pragma once

#include <QByteArray>

// 5 MB of C++ with something to colour in every line.
inline QByteArray largeSource()
{
    const QByteArray line =
        "int answer = 0x2a; /* a comment */ const char *text = \"a string\"; // end\n";
    return line.repeated(5 * 1024 * 1024 / line.size());
}
