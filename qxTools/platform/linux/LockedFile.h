// Opening files that nobody else uses meanwhile.
#pragma once

#include <qxTools/platform/linux/SystemFile.h>

#include <chrono>

namespace qxTools {

using Deadline = std::chrono::steady_clock::time_point;

/// That many milliseconds from now.
Deadline DeadlineIn(std::int64_t milliseconds);

/// Opens a file and locks it: shared for O_RDONLY, otherwise exclusively. A lock held elsewhere is waited for
/// until the deadline. What is locked is the file that has the name then: if another took its place
/// meanwhile, that one is opened. A file made by O_CREAT is readable and writable, less the umask.
/// @return a file that is not open, with errno, if that fails.
SystemFile OpenLocked(const std::string& fileName, int flags, Deadline until = {});

/// Whether the open file is still the one of that name.
bool IsNamed(const SystemFile& file, const std::string& fileName);

/// The file behind symbolic links, whether it exists or not.
/// @throws EFCreateError if the links cannot be followed.
std::string FollowLinks(const std::string& fileName);

/// "FOLDER/" of a path; "./" for a bare name.
std::string FolderOf(const std::string& path);

}  // namespace qxTools
