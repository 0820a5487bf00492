#pragma once
// The command line: "velto [Datei ...]", with --help, --version and --new-instance, and
// "velto --export OUT FILE" with its options.
#include <QString>
#include <QStringList>

namespace velto {

struct CommandLine {
    bool help = false;
    bool version = false;
    // Start a program of its own even when Velto is already running.
    bool newInstance = false;
    // Say where the shipped files were found, and end.
    bool dataFiles = false;
    QStringList files;
    // --export OUT and its companions. exportMode is set by --export even without OUT, so that a
    // wrong export line is answered as one.
    bool exportMode = false;
    QString exportOut;
    QString view = QStringLiteral("timeline");
    QString pages = QStringLiteral("1x1");
    QString from;
    QString to;
    QString error; // in German; empty when the line was understood
};

// args[0] is the program.
CommandLine ParseCommandLine(const QStringList& args);
QString UsageText();
QString VersionText();
// Each shipped file on a line of its own: its name, a tab, and where Velto finds it or "fehlt".
QString DataFilesText(const QString& programDir);

} // namespace velto
