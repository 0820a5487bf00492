#include "text/RtfDocument.h"

namespace velto::rtf {
namespace {

bool CanMerge(const Run& run, const CharFormat& format) {
    return run.format == format && !run.picture;
}

// Runs that became equal in format (after a change to all of them) are one run in the normal form.
void MergeEqualNeighbours(std::vector<Run>& runs) {
    std::vector<Run> merged;
    merged.reserve(runs.size());
    for (Run& run : runs) {
        if (!merged.empty() && CanMerge(merged.back(), run.format) && !run.picture)
            merged.back().text += run.text;
        else
            merged.push_back(std::move(run));
    }
    runs = std::move(merged);
}

} // namespace

void DocumentBuilder::AppendText(std::string_view utf8, const CharFormat& format) {
    if (utf8.empty())
        return;
    if (!m_open.runs.empty() && CanMerge(m_open.runs.back(), format))
        m_open.runs.back().text += utf8;
    else
        m_open.runs.push_back(Run{std::string(utf8), format, {}});
}

void DocumentBuilder::AppendPicture(Picture picture, const CharFormat& format) {
    m_open.runs.push_back(Run{std::string(), format, std::move(picture)});
}

void DocumentBuilder::EndParagraph(Alignment alignment, const CharFormat& mark, ParagraphBreak end) {
    m_open.alignment = alignment;
    m_open.mark = mark;
    m_open.end = end;
    m_document.paragraphs.push_back(std::move(m_open));
    m_open = Paragraph();
}

void DocumentBuilder::MarkPageBreak() {
    if (!m_document.paragraphs.empty())
        m_document.paragraphs.back().end = ParagraphBreak::Page;
}

void DocumentBuilder::CloseCell(int rightEdge) {
    auto& paragraphs = m_document.paragraphs;
    for (auto it = paragraphs.rbegin(); it != paragraphs.rend() && it->cell; ++it) {
        if (it->cell->endsCell && it != paragraphs.rbegin())
            break;
        it->cell->rightEdge = rightEdge;
    }
}

void DocumentBuilder::MarkRowEnd() {
    if (!m_document.paragraphs.empty() && m_document.paragraphs.back().cell &&
        m_document.paragraphs.back().cell->endsCell)
        m_document.paragraphs.back().cell->endsRow = true;
}

Document DocumentBuilder::Finish(Alignment alignment, const CharFormat& mark) {
    if (HasOpenParagraph())
        EndParagraph(alignment, mark, ParagraphBreak::None);
    Document done = std::move(m_document);
    m_document = Document();
    return done;
}

void ApplySizeToAll(Document& document, int halfPoints) {
    for (Paragraph& paragraph : document.paragraphs) {
        for (Run& run : paragraph.runs)
            run.format.halfPoints = halfPoints;
        paragraph.mark.halfPoints = halfPoints;
        MergeEqualNeighbours(paragraph.runs);
    }
}

} // namespace velto::rtf
