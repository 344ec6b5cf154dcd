#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "common/Error.h"
#include "common/Services.h"

namespace korvanta {

// Runs an event's handler. An error that it raises ends it and is written to the trace log, since there is no caller to
// raise it to.
template <class Handler>
void LogErrors(TraceLog& log, std::u16string_view procedure, Handler handler) {
    try {
        handler();
    } catch (const std::exception&) {
        try {
            log.Log(std::u16string(procedure) + u" Error: " + Error::Current().NumberAndDescription());
        } catch (const std::exception&) {
            // There was no memory for the log line.
            return;
        }
    }
}

// A member function as the handler of an event, run by LogErrors. The log and the owner outlive the event.
template <class Owner>
auto ErrorLoggingHandler(TraceLog& log, const char16_t* procedure, Owner& owner, void (Owner::*handler)()) {
    return [&log, procedure, &owner, handler] { LogErrors(log, procedure, [&] { (owner.*handler)(); }); };
}

}  // namespace korvanta
