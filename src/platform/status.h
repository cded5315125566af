// Status: how an action on a file, folder or port ended.
#pragma once

#include <string>

namespace counter {

enum class StatusKind {
    Ok,
    NotFound,      // no such file, folder or device
    NoPermission,  // the system refused
    Busy,          // somebody else holds it
    Illegal,       // it is there, but not what is needed: a folder, a bad setting
    Gone,          // a device that was there went away
    Interrupted,   // the program is to end, and a wait was given up
    Other,
};

struct Status {
    StatusKind Kind = StatusKind::Ok;
    std::string Path;    // the file, folder or device meant
    std::string Reason;  // the system's own words
    // Of an action that went well, what its user should know; empty for nothing.
    std::string Note = {};

    bool Ok() const { return Kind == StatusKind::Ok; }
    // "PATH: REASON", one line.
    std::string Text() const { return Path + ": " + Reason; }
};

}  // namespace counter
