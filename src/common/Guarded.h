#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "common/Error.h"
#include "common/Services.h"

namespace korvanta {

// Runs an event's handler; what it raises ends it and is told to the trace log, since there is no caller to raise to.
template <class Handler>
void Guarded(TraceLog& log, std::u16string_view procedure, Handler handler) {
    try {
        handler();
    } catch (const std::exception&) {
        try {
            log.Log(std::u16string(procedure) + u" Error: " + Error::Current().NumberAndDescription());
        } catch (const std::exception&) {
            // There was no memory for the line either.
            return;
        }
    }
}

}  // namespace korvanta
