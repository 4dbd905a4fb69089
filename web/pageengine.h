#pragma once

// False in a build with the stand-in for the page engine (see noengine/): its pages are opened as
// their source.
constexpr bool hasPageEngine()
{
#ifdef QUILLAN_NO_ENGINE
    return false;
#else
    return true;
#endif
}
