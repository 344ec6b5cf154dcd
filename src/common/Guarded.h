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

// A member function as the handler of an event, guarded. The log and the owner outlive the event.
template <class Owner>
auto GuardedHandler(TraceLog& log, const char16_t* procedure, Owner& owner, void (Owner::*handler)()) {
    return [&log, procedure, &owner, handler] { Guarded(log, procedure, [&] { (owner.*handler)(); }); };
}

}  // namespace korvanta
