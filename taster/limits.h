#pragma once

// What the helper may take. The editor watches the clock.
namespace Limits {

// First thing in the program: no file of its memory is left when it ends, it has no network where
// the system allows that, and it ends when the editor does.
void atStart();

// Before each file: from here on it may take a second and a half of the processor, so that the
// editor, which does the same again, stands still for less than two; a gigabyte of memory, and half
// of the usual stack. What takes more ends the program; that of memory with the code below
// where it can be told.
void forOneFile();

// Call it after each file: waiting takes no processor time.
void forWaiting();

constexpr int g_nOutOfMemory = 77;

} // namespace Limits
