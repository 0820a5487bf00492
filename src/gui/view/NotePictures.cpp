#include "view/NotePictures.h"

#include "view/NoteProperties.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <vector>

namespace velto::notetext {
namespace {

// A picture that names no size of any kind shows this large.
constexpr double kUnsizedPixels = 64.0;
// Metafiles give their size in hundredths of a millimetre.
constexpr double kHimetricPerInch = 2540.0;
constexpr double kPixelsPerInch = 96.0;
// No placeholder is drawn larger than this; it is only a frame.
constexpr int kLargestPlaceholder = 1200;

bool Drawable(rtf::PictureKind kind) {
    return kind == rtf::PictureKind::Png || kind == rtf::PictureKind::Jpeg;
}

QByteArray BytesOf(const rtf::Picture& picture) {
    return QByteArray(picture.data.data(), qsizetype(picture.data.size()));
}

// The size the picture is shown at: the wanted size if the RTF gave one, else its own size, scaled
// as the RTF says.
QSizeF ShownSize(const rtf::Picture& picture, const QImage& image) {
    double width = 0;
    double height = 0;
    if (picture.goalWidth > 0 && picture.goalHeight > 0) {
        width = picture.goalWidth / kTwipsPerPixel;
        height = picture.goalHeight / kTwipsPerPixel;
    } else if (picture.width > 0 && picture.height > 0) {
        const double unit = Drawable(picture.kind) ? 1.0 : kPixelsPerInch / kHimetricPerInch;
        width = picture.width * unit;
        height = picture.height * unit;
    } else if (!image.isNull()) {
        width = image.width();
        height = image.height();
    } else {
        width = height = kUnsizedPixels;
    }
    const double scaleX = picture.scaleX > 0 ? picture.scaleX / 100.0 : 1.0;
    const double scaleY = picture.scaleY > 0 ? picture.scaleY / 100.0 : 1.0;
    return {std::max(1.0, width * scaleX), std::max(1.0, height * scaleY)};
}

QImage Placeholder(QSizeF size) {
    const QSize pixels(std::clamp(int(std::lround(size.width())), 1, kLargestPlaceholder),
                       std::clamp(int(std::lround(size.height())), 1, kLargestPlaceholder));
    QImage image(pixels, QImage::Format_RGB32);
    image.fill(QColor(236, 236, 236));
    QPainter painter(&image);
    painter.setPen(QColor(150, 150, 150));
    painter.drawRect(image.rect().adjusted(0, 0, -1, -1));
    if (pixels.width() >= 40 && pixels.height() >= 16)
        painter.drawText(image.rect(), Qt::AlignCenter, QStringLiteral("Bild"));
    return image;
}

// Every picture shown gets a name never used before, so that no document can draw a stale image.
QUrl NewResourceName() {
    static std::atomic<quint64> shown = 0;
    return QUrl(QStringLiteral("velto-picture:%1").arg(++shown));
}

QByteArray Encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QImage ImageOfResource(const QVariant& resource) {
    if (resource.userType() == QMetaType::QImage)
        return resource.value<QImage>();
    if (resource.userType() == QMetaType::QPixmap)
        return resource.value<QPixmap>().toImage();
    if (resource.userType() == QMetaType::QByteArray)
        return QImage::fromData(resource.toByteArray());
    return {};
}

struct PastedImage {
    int position;
    QTextImageFormat format;
};

std::vector<PastedImage> ForeignImagesBetween(const QTextDocument& document, int start, int end) {
    std::vector<PastedImage> images;
    for (QTextBlock block = document.findBlock(start); block.isValid() && block.position() < end;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QTextCharFormat format = fragment.charFormat();
            if (!format.isImageFormat() || format.hasProperty(kPictureProperty))
                continue;
            for (int i = 0; i < fragment.length(); ++i)
                if (fragment.position() + i >= start && fragment.position() + i < end)
                    images.push_back({fragment.position() + i, format.toImageFormat()});
        }
    }
    return images;
}

} // namespace

void InsertPicture(QTextCursor& cursor, const rtf::PictureRef& picture, const QTextCharFormat& format) {
    QTextDocument& document = *cursor.document();
    const QUrl name = NewResourceName();
    QImage image;
    if (Drawable(picture->kind))
        image = QImage::fromData(BytesOf(*picture));
    const QSizeF size = ShownSize(*picture, image);
    document.addResource(QTextDocument::ImageResource, name, image.isNull() ? Placeholder(size) : image);

    QTextImageFormat shown;
    shown.merge(format);
    shown.setName(name.toString());
    shown.setWidth(size.width());
    shown.setHeight(size.height());
    shown.setProperty(kPictureProperty, QVariant::fromValue(picture));
    cursor.insertImage(shown);
}

rtf::PictureRef PictureOf(const QTextCharFormat& format) {
    return format.property(kPictureProperty).value<rtf::PictureRef>();
}

PastedPicture PictureFromImage(const QImage& image, const QByteArray& jpeg) {
    PastedPicture pasted;
    QImage kept = image;
    if (image.width() > kLargestPastedPixels || image.height() > kLargestPastedPixels) {
        kept = image.scaled(kLargestPastedPixels, kLargestPastedPixels, Qt::KeepAspectRatio,
                            Qt::SmoothTransformation);
        pasted.scaledDown = true;
    }
    rtf::Picture& picture = pasted.picture;
    const bool asJpeg = !jpeg.isEmpty();
    picture.kind = asJpeg ? rtf::PictureKind::Jpeg : rtf::PictureKind::Png;
    const QByteArray bytes = asJpeg && !pasted.scaledDown ? jpeg : Encoded(kept, asJpeg ? "JPEG" : "PNG");
    picture.data.assign(bytes.constData(), size_t(bytes.size()));
    picture.width = kept.width();
    picture.height = kept.height();
    picture.goalWidth = int(kept.width() * kTwipsPerPixel);
    picture.goalHeight = int(kept.height() * kTwipsPerPixel);
    return pasted;
}

int ScaleDownLargePictures(rtf::Document& note) {
    int scaled = 0;
    for (rtf::Paragraph& paragraph : note.paragraphs) {
        for (rtf::Run& run : paragraph.runs) {
            if (!run.picture || !Drawable(run.picture->kind))
                continue;
            QByteArray bytes = BytesOf(*run.picture);
            QBuffer buffer(&bytes);
            const QSize size = QImageReader(&buffer).size();
            if (size.width() <= kLargestPastedPixels && size.height() <= kLargestPastedPixels)
                continue;
            const bool jpeg = run.picture->kind == rtf::PictureKind::Jpeg;
            run.picture = PictureFromImage(QImage::fromData(bytes), jpeg ? bytes : QByteArray()).picture;
            ++scaled;
        }
    }
    return scaled;
}

int AdoptPastedImages(QTextDocument& document, int start, int end) {
    int scaled = 0;
    const std::vector<PastedImage> images = ForeignImagesBetween(document, start, end);
    // From the back, so that replacing one leaves the positions of the others as they are.
    for (auto it = images.rbegin(); it != images.rend(); ++it) {
        QTextCursor cursor(&document);
        cursor.setPosition(it->position);
        cursor.setPosition(it->position + 1, QTextCursor::KeepAnchor);
        const QImage image =
            ImageOfResource(document.resource(QTextDocument::ImageResource, QUrl(it->format.name())));
        cursor.removeSelectedText();
        if (image.isNull())
            continue;
        PastedPicture pasted = PictureFromImage(image);
        scaled += pasted.scaledDown ? 1 : 0;
        // A size the HTML asked for stays the shown size.
        if (it->format.width() > 0 && it->format.height() > 0 && !pasted.scaledDown) {
            pasted.picture.goalWidth = int(std::lround(it->format.width() * kTwipsPerPixel));
            pasted.picture.goalHeight = int(std::lround(it->format.height() * kTwipsPerPixel));
        }
        QTextCharFormat format = it->format;
        format.clearProperty(QTextFormat::ImageName);
        format.clearProperty(QTextFormat::ImageWidth);
        format.clearProperty(QTextFormat::ImageHeight);
        format.setObjectType(QTextFormat::NoObject);
        InsertPicture(cursor, rtf::PictureRef(std::move(pasted.picture)), format);
    }
    return scaled;
}

} // namespace velto::notetext
