#include "text/NoteLink.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace velto::rtf {
namespace {

bool IsAsciiAlpha(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsSchemeChar(char c) {
    return IsAsciiAlpha(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && IsAsciiAlpha(path[0]) && path[1] == ':';
}

// The scheme at the start of target ("http" in "http://x"); empty when there is none.
std::string_view SchemeOf(std::string_view target) {
    if (target.empty() || !IsAsciiAlpha(target[0]))
        return {};
    size_t end = 1;
    while (end < target.size() && IsSchemeChar(target[end]))
        ++end;
    if (end < 2 || end + 1 >= target.size() || target[end] != ':')
        return {};
    return target.substr(0, end);
}

bool IsWebScheme(std::string_view scheme) {
    return EqualsNoCase(scheme, "http") || EqualsNoCase(scheme, "https") || EqualsNoCase(scheme, "mailto");
}

// Two separators of either kind start a share on Windows, wherever the project is opened.
bool IsNetworkPath(std::string_view path) {
    return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
}

int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    c = AsciiLower(c);
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

bool IsEscape(std::string_view text, size_t at) {
    return text[at] == '%' && at + 2 < text.size() && HexValue(text[at + 1]) >= 0 &&
           HexValue(text[at + 2]) >= 0;
}

// "%2E" becomes "."; a "%" without two hex digits stays as it is.
std::string PercentDecoded(std::string_view text) {
    std::string decoded;
    for (size_t i = 0; i < text.size(); ++i) {
        if (!IsEscape(text, i)) {
            decoded += text[i];
            continue;
        }
        decoded += char(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2]));
        i += 2;
    }
    return decoded;
}

std::string_view WithoutTrailingDotsAndBlanks(std::string_view name) {
    while (!name.empty() && (name.back() == '.' || name.back() == ' '))
        name.remove_suffix(1);
    return name;
}

// Extensions that start something instead of showing it, on Windows and on Unix desktops.
constexpr std::string_view kProgramsAndInstallers[] = {
    "exe",  "com",        "scr",  "pif",        "cpl",          "msi",         "msp",      "mst", "msu",
    "msix", "msixbundle", "appx", "appxbundle", "appinstaller", "application", "gadget",   "xll", "xbap",
    "jar",  "jnlp",       "deb",  "rpm",        "snap",         "flatpakref",  "appimage", "run", "bin",
};
constexpr std::string_view kScripts[] = {
    "bat", "cmd", "ps1",     "psm1", "psd1", "ps1xml", "psc1", "msh", "vb",   "vbs",     "vbe",
    "js",  "jse", "ws",      "wsf",  "wsh",  "wsc",    "sct",  "hta", "chm",  "hlp",     "reg",
    "inf", "msc", "diagcab", "sh",   "bash", "zsh",    "csh",  "ksh", "fish", "command", "py",
    "pyw", "pyz", "pyc",     "pl",   "rb",   "php",    "lua",  "tcl",
};
// A shortcut runs whatever it points to.
constexpr std::string_view kShortcuts[] = {
    "lnk",     "url", "website", "scf", "appref-ms", "library-ms", "searchconnector-ms", "settingcontent-ms",
    "desktop",
};
// The desktop mounts a disk image and may start what it holds.
constexpr std::string_view kDiskImages[] = {
    "iso", "img", "vhd", "vhdx", "dmg",
};

template <size_t N> bool Contains(const std::string_view (&extensions)[N], std::string_view extension) {
    return std::any_of(std::begin(extensions), std::end(extensions),
                       [&](std::string_view known) { return EqualsNoCase(extension, known); });
}

bool IsProgramExtension(std::string_view name) {
    const size_t dot = name.rfind('.');
    if (dot == std::string_view::npos)
        return false;
    const std::string_view extension = name.substr(dot + 1);
    return Contains(kProgramsAndInstallers, extension) || Contains(kScripts, extension) ||
           Contains(kShortcuts, extension) || Contains(kDiskImages, extension);
}

} // namespace

LinkKind KindOfLinkTarget(std::string_view target) {
    const std::string_view scheme = SchemeOf(target);
    if (IsWebScheme(scheme) || (scheme.empty() && StartsWithNoCase(target, "www.")))
        return LinkKind::WebAddress;
    if (!scheme.empty() && !EqualsNoCase(scheme, "file"))
        return LinkKind::OtherScheme;
    const std::string path = LocalPathOf(target);
    if (IsNetworkPath(path))
        return LinkKind::NetworkPath;
    return IsProgramName(path) ? LinkKind::Program : LinkKind::Document;
}

bool OpensUnasked(LinkKind kind) {
    return kind == LinkKind::WebAddress || kind == LinkKind::Document;
}

std::string WebAddressOf(std::string_view target) {
    if (SchemeOf(target).empty() && StartsWithNoCase(target, "www."))
        return "http://" + std::string(target);
    return std::string(target);
}

std::string LocalPathOf(std::string_view target) {
    const std::string_view scheme = SchemeOf(target);
    if (!EqualsNoCase(scheme, "file"))
        return std::string(target);
    std::string_view rest = target.substr(scheme.size() + 1);
    rest = rest.substr(0, rest.find_first_of("?#")); // a query or fragment is no part of the path
    std::string host;
    if (rest.substr(0, 2) == "//") {
        const size_t pathStart = std::min(rest.find('/', 2), rest.size());
        const std::string_view authority = rest.substr(2, pathStart - 2);
        if (!authority.empty() && !EqualsNoCase(authority, "localhost"))
            host = "//" + std::string(authority);
        rest = rest.substr(pathStart);
    }
    std::string path = PercentDecoded(rest);
    if (host.empty() && path.size() >= 3 && path[0] == '/' && HasDrive(std::string_view(path).substr(1)))
        path.erase(0, 1); // "/C:/Daten" is the drive's path
    return host + path;
}

std::string OpenedFileName(std::string_view path) {
    if (HasDrive(path))
        path.remove_prefix(2);
    std::vector<std::string_view> names;
    for (size_t start = 0; start <= path.size();) {
        size_t end = start;
        while (end < path.size() && !IsSeparator(path[end]))
            ++end;
        const std::string_view part = path.substr(start, end - start);
        if (part == "..") {
            if (!names.empty())
                names.pop_back();
        } else if (!WithoutTrailingDotsAndBlanks(part).empty()) {
            names.push_back(WithoutTrailingDotsAndBlanks(part));
        }
        start = end + 1;
    }
    if (names.empty())
        return {};
    std::string_view name = names.back();
    const size_t colon = name.find(':');
    if (colon != std::string_view::npos && EqualsNoCase(name.substr(colon), "::$DATA"))
        name = WithoutTrailingDotsAndBlanks(name.substr(0, colon));
    return std::string(name);
}

bool IsProgramName(std::string_view path) {
    const std::string name = OpenedFileName(path);
    return name.find(':') != std::string::npos || IsProgramExtension(name);
}

} // namespace velto::rtf
