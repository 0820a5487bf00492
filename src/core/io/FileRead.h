#pragma once
// Reading the whole of a file that the user named: a command's input or one of the small data
// files. A symbolic link is followed, since reading through it changes nothing.
#include "io/FileSystem.h"

#include <string>

namespace velto {

// The bytes of the file at path; 0 or -errno. A folder gives -EISDIR, which tells the user more
// than kNotRegularFile.
int ReadWholeFile(FileSystem& fs, const std::string& path, std::string& bytes);
// error as it is, except that kNotRegularFile for a folder becomes -EISDIR.
int NameFolder(FileSystem& fs, const std::string& path, int error);
// "Die Datei "<path>" kann nicht gelesen werden: <reason>."
std::string CannotReadMessage(const std::string& path, int error);

} // namespace velto
