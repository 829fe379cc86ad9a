#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "persist/descriptor.h"

/// Files that tell by a lock whether whoever made them still runs. The lock ends with the process, whatever ends that;
/// a process number would be given out again, and stands for another process in each container.
namespace tav {

constexpr std::string_view kRandomEnd = "XXXXXX";  ///< as long as the end of the names

/// Makes a new file "BEGINNINGxxxxxx", open and locked as long as the descriptor and its copies are; `name` becomes
/// its name. The descriptor is not open when the file can't be made; errno tells why.
Descriptor MakeLockedFile(const std::filesystem::path& beginning, std::filesystem::path& name);

/// Whether the file of the descriptor can be locked at all: some network folders know no locks.
bool HoldsLock(const Descriptor& file);

/// Removes a file of that kind, unless it is locked.
void RemoveIfLeft(const std::filesystem::path& file);

}  // namespace tav
