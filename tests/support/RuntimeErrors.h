#pragma once

#include "RuntimeError.h"

#include <functional>

// The number of the run-time error that the call ends with; 0 when none.
inline int errorNumber(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}
