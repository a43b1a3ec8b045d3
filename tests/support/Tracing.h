#pragma once
#include "common/COM_Object.h"
#include "support/Printed.h"

#include <string>

/// Switches the trace of references on for the scope.
class Tracing
{
public:
    Tracing() { COM_Object::turnOnDebugFlag(); }
    ~Tracing() { COM_Object::turnOffDebugFlag(); }
    Tracing(const Tracing&) = delete;
    Tracing& operator=(const Tracing&) = delete;
};

/// What `action` writes to standard output while the trace is on.
template <typename Action>
std::string tracedBy(Action action)
{
    return printedBy([&action] {
        const Tracing tracing;
        action();
    });
}
