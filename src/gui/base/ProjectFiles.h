#pragma once
// Project file names as the shell handles them: the dialog filter, the extension, and the hand-over of
// paths and texts to the core (which takes paths in the file system's own bytes and answers in UTF-8).
#include <QString>

#include <string>

namespace velto {

// "Projekt (*.VT5 *.vt5)": lower-case names are listed too on case-sensitive file systems.
QString ProjectFileFilter();
// The path with ".VT5" appended unless it already ends in ".VT5" (any case).
QString WithProjectExtension(const QString& path);
// The absolute, cleaned path; two names of one file give the same key.
QString FileKey(const QString& path);

std::string ToCorePath(const QString& path);
QString FromCorePath(const std::string& path);
// Titles and messages of the core are UTF-8.
QString FromCoreText(const std::string& text);

} // namespace velto
