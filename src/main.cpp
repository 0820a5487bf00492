// velto: the desktop program. Everything but the command line lives in the velto_gui library.
#include "VeltoVersion.h"
#include "app/CVeltoApp.h"
#include "app/ChartExport.h"
#include "app/CommandLine.h"
#include "app/SingleInstance.h"
#include "base/QtDesktop.h"

#include <QApplication>
#include <QCoreApplication>

#include <cstdio>

using namespace velto;

namespace {
QStringList RawArguments(int argc, char** argv) {
    QStringList args;
    for (int i = 0; i < argc; ++i)
        args.append(QString::fromLocal8Bit(argv[i]));
    return args;
}

int Print(FILE* stream, const QString& text, int exitCode) {
    std::fputs(text.toLocal8Bit().constData(), stream);
    return exitCode;
}

// "--export": no window, so no display either; the offscreen platform draws the fonts alike.
int Export(int argc, char** argv, const CommandLine& line) {
    QString error = line.error;
    const auto request = error.isEmpty() ? ExportRequestOf(line, error) : std::nullopt;
    if (!request)
        return Print(stderr, error + QStringLiteral("\n\n") + UsageText(), kExportUsage);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    return RunExport(*request, stderr);
}
} // namespace

int main(int argc, char** argv) {
    // Help and version are answered before Qt needs a display.
    const CommandLine early = ParseCommandLine(RawArguments(argc, argv));
    if (early.help)
        return Print(stdout, UsageText(), 0);
    if (early.version)
        return Print(stdout, VersionText(), 0);
    if (early.exportMode)
        return Export(argc, argv, early);
    if (early.dataFiles) {
        // The program's folder needs the application object, but no display.
        QCoreApplication core(argc, argv);
        return Print(stdout, DataFilesText(QCoreApplication::applicationDirPath()), 0);
    }

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Velto"));
    QApplication::setApplicationVersion(QLatin1String(kVeltoVersion));
    CVeltoApp::InstallQtTranslation();

    // Qt has taken its own options (-platform and the like) out of the arguments by now.
    const CommandLine line = ParseCommandLine(QApplication::arguments());
    if (!line.error.isEmpty())
        return Print(stderr, line.error + QStringLiteral("\n\n") + UsageText(), 2);

    // A Velto already running opens the files itself; this program then has nothing more to do.
    SingleInstance instance;
    if (!line.newInstance && instance.HandOver(line.files))
        return 0;

    QtDesktop desktop;
    CVeltoApp app(desktop);
    if (!line.newInstance && instance.Listen())
        QObject::connect(&instance, &SingleInstance::filesHandedOver, &application,
                         [&app](const QStringList& files) { app.OpenHandedOver(files); });
    app.Start(line.files);
    return application.exec();
}
