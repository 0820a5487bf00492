#pragma once
// What a hyperlink target of a note names, decided from its text alone: a web address or a file, and
// whether the file is a program or script that the desktop would run rather than show. Targets are
// UTF-8.
#include <string>
#include <string_view>

namespace rtf {

enum class LinkKind {
    WebAddress, // a scheme ("http://", "mailto:") or a leading "www."
    FileUrl,    // "file:" followed by a path
    FilePath,   // everything else: an absolute or relative path, with either kind of separator
};

// A single letter before ':' is a drive ("C:\Daten"), not a scheme.
LinkKind KindOfLinkTarget(std::string_view target);

// The address as a browser takes it: a bare "www." address gets "http://".
std::string WebAddressOf(std::string_view target);

// Whether the file name ends in an extension that desktops run (programs, scripts, installers,
// shortcuts), compared without regard to case. A folder part before the name is ignored.
bool IsProgramName(std::string_view path);

} // namespace rtf
