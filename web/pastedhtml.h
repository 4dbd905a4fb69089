#pragma once

#include <QString>

// What is pasted or dropped from elsewhere, before the page engine gets it: data addresses that no
// page may show lead nowhere (see dataaddresses.h); where that changes anything, scripts and event
// handlers go, too, as the engine's own paste would leave them out. Pure.
QString harmlessPaste(const QString &strHtml);
