#include "web/filelock.h"

#include <sys/file.h>

bool lockOpenFile(int nHandle)
{
    return flock(nHandle, LOCK_EX | LOCK_NB) == 0;
}
