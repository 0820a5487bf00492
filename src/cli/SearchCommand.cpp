#include "SearchCommand.h"

#include "ExitStatus.h"
#include "ProjectCommands.h"
#include "document/ProjectFile.h"
#include "model/Cp1252.h"
#include "outline/SearchTexts.h"

#include <ostream>

namespace velto {

namespace {

// The parts by their letters, in the order the search tests them.
constexpr std::pair<SearchPart, char> kPartLetters[kSearchPartCount] = {
    {kPartTitle, 't'},           {kPartNote, 'n'},        {kPartHours, 'h'},
    {kPartCalculatedCosts, 'c'}, {kPartNeededCosts, 'b'},
};

std::string Letters(SearchParts parts) {
    std::string letters;
    for (const auto& [part, letter] : kPartLetters)
        if (parts & part)
            letters += letter;
    return letters;
}

// A tab or line break in a title would break the line into fields that are not there.
std::string OneLine(std::string text) {
    for (char& c : text)
        if (c == '\t' || c == '\n' || c == '\r')
            c = ' ';
    return text;
}

} // namespace

int RunSearch(const std::string& path, const std::string& text, bool matchCase, std::ostream& out,
              std::ostream& err) {
    ProjectContent content;
    ReadResult result;
    const int status = LoadProject(path, content, result, err);
    if (status == kExitFileError)
        return status;
    // A text that Windows-1252 cannot hold is in no node.
    const std::optional<std::string> cp1252 = cp1252::FromUtf8(text);
    const SearchText wanted = cp1252 ? SearchText(*cp1252, matchCase) : SearchText();
    SearchTexts texts;
    texts.Update(content.firstNode);
    for (size_t position = 0; position < texts.Count(); ++position) {
        if (const SearchParts parts = texts.PartsHolding(position, wanted))
            out << position << '\t' << Letters(parts) << '\t'
                << OneLine(cp1252::ToUtf8(texts.NodeAt(position)->m_strTitle)) << '\n';
    }
    return status;
}

} // namespace velto
