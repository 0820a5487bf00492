#include "app/CommandLine.h"
#include "VeltoVersion.h"
#include "base/DataFiles.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace velto {

namespace {
const QCommandLineOption kHelp({QStringLiteral("h"), QStringLiteral("help")},
                               QString::fromUtf8("Zeigt diese Hilfe an."));
const QCommandLineOption kVersion({QStringLiteral("v"), QStringLiteral("version")},
                                  QString::fromUtf8("Zeigt die Versionsnummer an."));
const QCommandLineOption kNewInstance(QStringLiteral("new-instance"),
                                      QString::fromUtf8("Startet ein eigenes Velto, auch wenn eins läuft."));
const QCommandLineOption
    kDataFiles(QStringLiteral("data-files"),
               QString::fromUtf8("Zeigt, wo Velto seine mitgelieferten Dateien findet."));

const QCommandLineOption kExport(QStringLiteral("export"), QString(), QStringLiteral("OUT"));
const QCommandLineOption kView(QStringLiteral("view"), QString(), QStringLiteral("timeline|mindmap"),
                               QStringLiteral("timeline"));
const QCommandLineOption kPages(QStringLiteral("pages"), QString(), QStringLiteral("NxM"),
                                QStringLiteral("1x1"));
const QCommandLineOption kFrom(QStringLiteral("from"), QString(), QStringLiteral("JJJJ-MM-TT"));
const QCommandLineOption kTo(QStringLiteral("to"), QString(), QStringLiteral("JJJJ-MM-TT"));

// What Velto ships besides the program.
const char* const kShippedFiles[] = {"Velto.pdf", "ALARM.WAV", "Beispielprojekt.VT5",
                                     "translations/qtbase_de.qm"};
// --export before the end of the options ("--"), with or without its value.
bool NamesExport(const QStringList& args) {
    for (qsizetype i = 1; i < args.size() && args[i] != QLatin1String("--"); ++i)
        if (args[i] == QLatin1String("--export") || args[i].startsWith(QLatin1String("--export=")))
            return true;
    return false;
}
} // namespace

CommandLine ParseCommandLine(const QStringList& args) {
    QCommandLineParser parser;
    parser.addOption(kHelp);
    parser.addOption(kVersion);
    parser.addOption(kNewInstance);
    parser.addOption(kDataFiles);
    for (const QCommandLineOption& option : {kExport, kView, kPages, kFrom, kTo})
        parser.addOption(option);
    parser.addPositionalArgument(QStringLiteral("Datei"), QString());
    CommandLine out;
    if (!parser.parse(args)) {
        const QStringList unknown = parser.unknownOptionNames();
        out.error = unknown.isEmpty()
                        ? QString::fromUtf8("Die Befehlszeile ist unvollständig.")
                        : QString::fromUtf8("Unbekannte Option: %1").arg(unknown.join(QStringLiteral(", ")));
    }
    out.help = parser.isSet(kHelp);
    out.version = parser.isSet(kVersion);
    out.newInstance = parser.isSet(kNewInstance);
    out.dataFiles = parser.isSet(kDataFiles);
    out.files = parser.positionalArguments();
    out.exportMode = NamesExport(args);
    out.exportOut = parser.value(kExport);
    out.view = parser.value(kView);
    out.pages = parser.value(kPages);
    out.from = parser.value(kFrom);
    out.to = parser.value(kTo);
    return out;
}

QString UsageText() {
    return QString::fromUtf8("Aufruf: velto [Optionen] [Datei ...]\n"
                             "\n"
                             "Velto plant Projekte als Zeitplan oder Mind Map. Jede angegebene\n"
                             "Projektdatei (.VT5) wird in einem eigenen Fenster geöffnet, nach den\n"
                             "Dateien, die in den Einstellungen für den Start eingetragen sind.\n"
                             "Ohne Datei beginnt Velto mit einem neuen Projekt.\n"
                             "Läuft Velto schon, öffnet das laufende Velto die Dateien und\n"
                             "kommt nach vorn.\n"
                             "\n"
                             "Optionen:\n"
                             "  -h, --help      Zeigt diese Hilfe an.\n"
                             "  -v, --version   Zeigt die Versionsnummer an.\n"
                             "  --new-instance  Startet ein eigenes Velto, auch wenn eins läuft.\n"
                             "  --data-files    Zeigt, wo Velto seine mitgelieferten Dateien findet.\n"
                             "\n"
                             "Ausgabe ohne Fenster:\n"
                             "  velto --export AUSGABE DATEI [--view timeline|mindmap] [--pages NxM]\n"
                             "        [--from JJJJ-MM-TT --to JJJJ-MM-TT]\n"
                             "  Schreibt den Zeitplan (timeline, Vorgabe) oder die Mind Map der\n"
                             "  Projektdatei DATEI nach AUSGABE und endet. AUSGABE.pdf: der Zeitplan\n"
                             "  ab dem ersten Knoten über so viele Seiten wie nötig, die Mind Map auf\n"
                             "  N x M Seiten (--pages, Vorgabe 1x1, je 1 bis 20); .png und .svg: das\n"
                             "  Ganze als ein Bild. --from/--to wählen die Tage des Zeitplans, sonst\n"
                             "  reicht er vom ersten Start bis zum letzten Termin.\n"
                             "  Ende mit 0: geschrieben; 1: falscher Aufruf; 2: DATEI nicht lesbar;\n"
                             "  3: AUSGABE nicht schreibbar.\n");
}

QString DataFilesText(const QString& programDir) {
    QString text;
    for (const char* name : kShippedFiles) {
        const QString path = ShippedFile(programDir, QLatin1String(name));
        text +=
            QLatin1String(name) + '\t' + (QFileInfo::exists(path) ? path : QStringLiteral("fehlt")) + '\n';
    }
    return text;
}

QString VersionText() {
    return QStringLiteral("Velto %1\n").arg(QLatin1String(kVeltoVersion));
}

} // namespace velto
