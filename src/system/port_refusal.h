// What someone whom the system refuses a serial port can do about it.
#pragma once

#include <string>
#include <vector>

namespace counter {

// How the group that owns a device relates to the user of this process.
struct GroupAccess {
    std::string Group;  // its name; empty where membership would not open the device
    // The system's list of groups has the user in it, which counts from the next login on.
    bool ListsUser = false;
};

// Looks at the device at the end of all links. Membership of the superuser's own group is no way to a port:
// it counts as one that would not open the device.
GroupAccess GroupAccessTo(const std::string& device);

// What to do, in brackets after the system's own reason and beginning with a blank; empty where no group
// helps. " (it belongs to group dialout: sudo usermod -aG dialout $USER, then log out and in again)"
std::string RefusalAdvice(const GroupAccess& access);

// Programs that use a serial port leave a lock file with their number. Says whose it is, and what to do with
// one that a program has left behind; empty where there is none. `folders` are looked through in order.
std::string LockAdvice(const std::string& device,
                       const std::vector<std::string>& folders = {"/var/lock", "/run/lock", "/tmp"});

}  // namespace counter
