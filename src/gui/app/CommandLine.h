#pragma once
// The command line: "velto [Datei ...]", with --help, --version and --new-instance.
#include <QString>
#include <QStringList>

namespace velto {

struct CommandLine {
    bool help = false;
    bool version = false;
    // Start a program of its own even when Velto is already running.
    bool newInstance = false;
    QStringList files;
    QString error; // in German; empty when the line was understood
};

// args[0] is the program.
CommandLine ParseCommandLine(const QStringList& args);
QString UsageText();
QString VersionText();

} // namespace velto
