#pragma once
// A note's pictures in the pane's QTextDocument: each an image the document holds as a resource,
// carrying the note's picture untouched, so that saving writes back the very bytes that were read.
// Kinds Qt cannot draw (metafiles, unknown kinds) and pictures whose bytes are broken show a
// placeholder of their size.
#include "text/RtfDocument.h"

#include <QTextCharFormat>

class QImage;
class QTextCursor;
class QTextDocument;

namespace velto::notetext {

// Pasted pictures are scaled down to fit this square.
inline constexpr int kLargestPastedPixels = 2000;

// Inserts the picture at the cursor, with the run's char format.
void InsertPicture(QTextCursor& cursor, const rtf::PictureRef& picture, const QTextCharFormat& format);
// The note's picture a char format stands for; empty for anything else.
rtf::PictureRef PictureOf(const QTextCharFormat& format);

struct PastedPicture {
    rtf::Picture picture;
    bool scaledDown = false;
};
// A pasted image as the note keeps it. jpeg: the image's JPEG file when the clipboard gave one, kept
// as it is unless the image had to be scaled down; otherwise the picture is stored as PNG.
PastedPicture PictureFromImage(const QImage& image, const QByteArray& jpeg = {});
// Scales the note's pictures that are larger than the paste allows; gives how many were.
int ScaleDownLargePictures(rtf::Document& note);
// Makes the images that pasted HTML brought between start and end the note's own pictures, and
// removes those whose image cannot be had (a picture on a web server, say), so that what the pane
// shows is what is saved. Gives how many were scaled down.
int AdoptPastedImages(QTextDocument& document, int start, int end);

} // namespace velto::notetext
