// Whether something raises the exception of bad arguments.
#pragma once

#include <xeexcept.h>

/// Calls the function; true if it raises.
template <class Function>
bool raises(Function function)
{
    try {
        function();
    } catch (CInvalidArgException_X* exception) {
        exception->Delete();
        return true;
    }
    return false;
}
