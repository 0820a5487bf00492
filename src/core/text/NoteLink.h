#pragma once
// What a hyperlink target of a note names, decided from its text alone, and whether the desktop may
// open it without asking: a note may come from someone else's project file, so only addresses for the
// browser or the mail program and files that merely show are opened unasked. Targets are UTF-8 and
// trimmed.
#include <string>
#include <string_view>

namespace velto::rtf {

enum class LinkKind {
    WebAddress,  // "http:", "https:", "mailto:" or a leading "www."
    OtherScheme, // any other scheme ("search-ms:", "javascript:"), whose handler nobody can foresee
    NetworkPath, // "\\server\share\...", also as a "file:" URL; even looking it up contacts the server
    Program,     // a local file that runs: program, script, installer, shortcut, disk image
    Document,    // a local file or folder that only shows
};

// A single letter before ':' is a drive ("C:\Daten"), not a scheme. A "file:" URL is judged by the
// path it names.
LinkKind KindOfLinkTarget(std::string_view target);

// Web addresses and documents; every other kind asks first.
bool OpensUnasked(LinkKind kind);

// The address as a browser takes it: a bare "www." address gets "http://".
std::string WebAddressOf(std::string_view target);

// The path a file target names: a "file:" URL decoded ("file:///C:/a%20b" is "C:/a b", a host
// becomes "//host"); any other target as it is.
std::string LocalPathOf(std::string_view target);

// The name of the file that Windows really opens for a path: "." and ".." taken as folders, trailing
// dots and blanks dropped ("tool.exe. " is "tool.exe"), the unnamed data stream "::$DATA" dropped.
std::string OpenedFileName(std::string_view path);

// Whether opening the file may start something rather than show it: an extension that desktops run
// (programs, scripts, installers, shortcuts, disk images), compared without regard to case on the
// name Windows opens; also any named data stream ("Plan.txt:x"), whose content no name tells.
bool IsProgramName(std::string_view path);

} // namespace velto::rtf
