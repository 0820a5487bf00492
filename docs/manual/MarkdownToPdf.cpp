// Renders the user manual from its Markdown source to a PDF at build time, with Qt's own Markdown
// reader and PDF writer, so the build needs no document converter.
//   velto_manual_pdf SOURCE.md OUTPUT.pdf
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextImageFormat>

#include <cstdio>

namespace {
// The text width of an A4 page with the 2 cm margins that printing uses, in the 96-dpi units in
// which images are laid out.
constexpr double kTextWidthInch = (210.0 - 40.0) / 25.4;
constexpr double kTextWidthUnits = kTextWidthInch * 96.0;

int Fail(const QString& text) {
    std::fprintf(stderr, "velto_manual_pdf: %s\n", text.toLocal8Bit().constData());
    return 1;
}

// Screenshots are wider than a page: each image is scaled down to the text width, keeping its shape.
// Returns the name of the first image that cannot be loaded, or an empty string.
QString FitImages(QTextDocument& doc) {
    for (QTextBlock block = doc.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (!fragment.charFormat().isImageFormat())
                continue;
            QTextImageFormat format = fragment.charFormat().toImageFormat();
            const QImage image =
                doc.resource(QTextDocument::ImageResource, QUrl(format.name())).value<QImage>();
            if (image.isNull())
                return format.name();
            const double width = std::min<double>(image.width(), kTextWidthUnits);
            format.setWidth(width);
            format.setHeight(width * image.height() / image.width());
            QTextCursor cursor(&doc);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
        }
    }
    return {};
}
} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QStringList args = QGuiApplication::arguments();
    if (args.size() != 3)
        return Fail(QStringLiteral("usage: velto_manual_pdf SOURCE.md OUTPUT.pdf"));

    QFile source(args[1]);
    if (!source.open(QIODevice::ReadOnly))
        return Fail(QStringLiteral("cannot read %1").arg(args[1]));
    QTextDocument doc;
    doc.setDefaultFont(QFont(QStringLiteral("Liberation Sans"), 10));
    const QUrl base = QUrl::fromLocalFile(QFileInfo(args[1]).absolutePath() + QLatin1Char('/'));
    doc.setBaseUrl(base);
    doc.setMetaInformation(QTextDocument::DocumentUrl, base.toString());
    doc.setMarkdown(QString::fromUtf8(source.readAll()));
    if (const QString missing = FitImages(doc); !missing.isEmpty())
        return Fail(QStringLiteral("image not found: %1").arg(missing));

    QPdfWriter writer(args[2]);
    writer.setPageSize(QPageSize(QPageSize::A4));
    // No margins of the writer's own: printing the document puts its 2 cm margins inside the page.
    writer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    writer.setTitle(QStringLiteral("Velto – Handbuch"));
    writer.setCreator(QStringLiteral("Velto"));
    doc.print(&writer);
    return QFileInfo(args[2]).size() > 0 ? 0 : Fail(QStringLiteral("cannot write %1").arg(args[2]));
}
