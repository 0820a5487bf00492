#pragma once
// Reading a project straight from its file, never holding all of its bytes at once.
#include "document/ProjectFile.h"
#include "io/FileSystem.h"

#include <string>

namespace velto {

// 0, or -errno when the file cannot be opened (a link or anything but a regular file is refused);
// errors while reading are in result.
int ReadProjectFile(FileSystem& fs, const std::string& path, ProjectContent& content, ReadResult& result);
// Whether the file holds a whole project: every byte the content needs is there.
bool HoldsWholeProject(FileSystem& fs, const std::string& path);

} // namespace velto
