#pragma once

#include <exception>
#include <string>

#include "common/Error.h"
#include "common/Services.h"

namespace korvanta {

// Runs an event's handler; what it raises ends it and is told to the trace log, since there is no caller to raise to.
template <class Handler>
void Guarded(TraceLog& log, const std::u16string& procedure, Handler handler) {
    try {
        handler();
    } catch (const std::exception&) {
        log.Log(procedure + u" Error: " + Error::Current().NumberAndDescription());
    }
}

}  // namespace korvanta
