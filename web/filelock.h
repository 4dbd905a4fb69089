#pragma once

// Makes this process the owner of an open file, until the file is closed or the process ends,
// however it does. False when another has it already. Never waits.
bool lockOpenFile(int nHandle);
