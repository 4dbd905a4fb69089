#pragma once

#include <QString>

// Makes pasted or dropped markup safe before the page engine gets it. Harmful data addresses are
// disabled (see dataaddresses.h). If that changes anything, scripts and event handlers are removed,
// too, as the engine's own paste does. Pure.
QString harmlessPaste(const QString &strHtml);
