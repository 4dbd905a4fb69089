#pragma once

// The limits of the helper. The editor watches the clock.
namespace Limits {

// Call it first in the program. A crash then leaves no memory dump, the program has no network if
// the system allows that, and it ends with the editor.
void atStart();

// Call it before each file. From then on the helper may use a second and a half of processor time,
// so that the editor, which does the same again, stalls for less than two. It may use a gigabyte of
// memory, and half of the usual stack. Exceeding a limit ends the helper; for memory with the code
// below, if that can be told.
void forOneFile();

// Call it after each file: waiting takes no processor time.
void forWaiting();

constexpr int g_nOutOfMemory = 77;

} // namespace Limits
