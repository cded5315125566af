// What a file keeps when it is written over, though the new one is another file: who owns it and who may use
// it.
#pragma once

#include <string>

namespace counter {

// Gives the open file, which nobody else knows yet and which is empty, what `path` has: owner, group, mode,
// access list and extended attributes, each as far as the system lets this user. Nothing where there is no
// `path`. A group that can't be kept gets no rights that everybody has not.
void KeepRights(const std::string& path, int handle);

// A file with several names keeps one: the others go on naming the old content. Says so in a line; empty for
// a file with one name, or none.
std::string LostNames(const std::string& path);

}  // namespace counter
