#include "text/RtfKeywords.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace velto::rtf {
namespace {

using Entry = std::pair<std::string_view, Keyword>;

// Destinations whose content is no text of the note: document information, style and list
// definitions, objects, page furniture, notes and comments, and the fallbacks that a reader of the
// newer forms ignores (pictures for readers without shapes, nested-table fallback text, and list labels,
// which the rich-edit control numbers itself).
// clang-format off
constexpr std::string_view kSkipped[] = {
    "aftncn", "aftnsep", "aftnsepc", "annotation", "atnauthor", "atndate", "atnicn", "atnid", "atnparent",
    "atnref", "atntime", "atrfend", "atrfstart", "author", "background", "bkmkend", "bkmkstart", "buptim",
    "category", "colorschememapping", "comment", "company", "creatim", "datafield", "datastore", "do",
    "doccomm", "docvar", "factoidname", "falt", "fchars", "ffdeftext", "ffentrymcr", "ffexitmcr", "ffformat",
    "ffhelptext", "ffl", "ffname", "ffstattext", "filetbl", "fldtype", "fname", "fontemb", "fontfile",
    "footer", "footerf", "footerl", "footerr", "footnote", "formfield", "ftncn", "ftnsep", "ftnsepc",
    "generator", "gridtbl", "header", "headerf", "headerl", "headerr", "hlinkbase", "hlloc",
    "hlsrc", "hsv", "htmltag", "info", "ipgp", "keywords", "latentstyles", "lchars", "levelnumbers",
    "leveltext", "lfolevel", "list", "listlevel", "listname", "listoverride",
    "listpicture", "listtext", "manager", "mhtmltag", "mmathPict", "mmathPr", "nonesttables",
    "nonshppict", "objalias", "objdata", "object", "objname", "objsect", "objtime", "oleclsid", "operator",
    "panose", "password", "passwordhash", "pgdsctbl", "pgp", "pgptbl", "picprop", "pnseclvl",
    "pntext", "pntxta", "pntxtb", "printim", "private", "propname", "protend", "protstart", "protusertbl",
    "revtbl", "revtim", "rsidtbl", "rxe", "shp", "shpinst", "shprslt", "shptxt", "sn", "sp", "stylesheet",
    "subject", "sv", "svb", "tc", "template", "themedata", "title", "txe", "userprops", "wgrffmtfilter",
    "windowcaption", "writereservation", "writereservhash", "xe", "xform", "xmlattrname", "xmlattrvalue",
    "xmlclose", "xmlnstbl", "xmlopen",
};
// clang-format on

constexpr Entry kKeywords[] = {
    {"ansi", Keyword::Ansi},
    {"ansicpg", Keyword::AnsiCodePage},
    {"b", Keyword::Bold},
    {"bin", Keyword::Binary},
    {"blue", Keyword::Blue},
    {"bullet", Keyword::Bullet},
    {"cell", Keyword::Cell},
    {"cellx", Keyword::CellBoundary},
    {"cf", Keyword::Colour},
    {"clmrg", Keyword::CellMerged},
    {"colortbl", Keyword::ColourTable},
    {"cpg", Keyword::FontCodePage},
    {"deff", Keyword::DefaultFont},
    {"emdash", Keyword::EmDash},
    {"emspace", Keyword::EmSpace},
    {"endash", Keyword::EnDash},
    {"enspace", Keyword::EnSpace},
    {"f", Keyword::Font},
    {"fcharset", Keyword::Charset},
    {"fi", Keyword::FirstLineIndent},
    {"field", Keyword::Field},
    {"fldinst", Keyword::FieldInstruction},
    {"fldrslt", Keyword::FieldResult},
    {"fonttbl", Keyword::FontTable},
    {"fs", Keyword::FontSize},
    {"green", Keyword::Green},
    {"i", Keyword::Italic},
    {"ilvl", Keyword::ListLevel},
    {"intbl", Keyword::InTable},
    {"ldblquote", Keyword::LeftDoubleQuote},
    {"li", Keyword::LeftIndent},
    {"lin", Keyword::LeftIndent},
    {"line", Keyword::Line},
    {"listoverridetable", Keyword::ListOverrideTable},
    {"listtable", Keyword::ListTable},
    {"lquote", Keyword::LeftQuote},
    {"ls", Keyword::ListNumber},
    {"ltrmark", Keyword::LeftToRightMark},
    {"mac", Keyword::Mac},
    {"nestcell", Keyword::NestedCell},
    {"nesttableprops", Keyword::NestedTableProperties},
    {"page", Keyword::Page},
    {"par", Keyword::Par},
    {"pard", Keyword::ParagraphDefault},
    {"pc", Keyword::Pc},
    {"pca", Keyword::Pca},
    {"pict", Keyword::Picture},
    {"plain", Keyword::Plain},
    {"pn", Keyword::OldNumbering},
    {"qc", Keyword::AlignCentre},
    {"qd", Keyword::AlignJustified},
    {"qj", Keyword::AlignJustified},
    {"ql", Keyword::AlignLeft},
    {"qmspace", Keyword::QuarterEmSpace},
    {"qr", Keyword::AlignRight},
    {"rdblquote", Keyword::RightDoubleQuote},
    {"red", Keyword::Red},
    {"ri", Keyword::RightIndent},
    {"rin", Keyword::RightIndent},
    {"row", Keyword::Row},
    {"rquote", Keyword::RightQuote},
    {"rtlmark", Keyword::RightToLeftMark},
    {"sa", Keyword::SpaceAfter},
    {"sb", Keyword::SpaceBefore},
    {"sect", Keyword::Section},
    {"shppict", Keyword::ShapePicture},
    {"sl", Keyword::LineSpacing},
    {"slmult", Keyword::LineMultiple},
    {"strike", Keyword::StrikeOut},
    {"striked", Keyword::StrikeOut},
    {"tab", Keyword::Tab},
    {"tqc", Keyword::TabCentre},
    {"tqdec", Keyword::TabDecimal},
    {"tqr", Keyword::TabRight},
    {"trowd", Keyword::RowDefaults},
    {"tx", Keyword::TabPosition},
    {"u", Keyword::Unicode},
    {"uc", Keyword::UnicodeSkip},
    {"ud", Keyword::UnicodeAlternative},
    {"ul", Keyword::Underline},
    {"uld", Keyword::Underline},
    {"uldash", Keyword::Underline},
    {"uldashd", Keyword::Underline},
    {"uldashdd", Keyword::Underline},
    {"uldb", Keyword::Underline},
    {"ulhair", Keyword::Underline},
    {"ulhwave", Keyword::Underline},
    {"ulldash", Keyword::Underline},
    {"ulnone", Keyword::UnderlineNone},
    {"ulth", Keyword::Underline},
    {"ulthd", Keyword::Underline},
    {"ulthdash", Keyword::Underline},
    {"ulthdashd", Keyword::Underline},
    {"ulthdashdd", Keyword::Underline},
    {"ulthldash", Keyword::Underline},
    {"ululdbwave", Keyword::Underline},
    {"ulw", Keyword::Underline},
    {"ulwave", Keyword::Underline},
    {"upr", Keyword::UnicodePair},
    {"zwj", Keyword::ZeroWidthJoiner},
    {"zwnj", Keyword::ZeroWidthNonJoiner},
};

template <typename Table, typename Key> constexpr bool IsSorted(const Table& table, Key key) {
    return std::is_sorted(std::begin(table), std::end(table),
                          [key](const auto& a, const auto& b) { return key(a) < key(b); });
}
static_assert(IsSorted(kKeywords, [](const Entry& e) { return e.first; }));
static_assert(IsSorted(kSkipped, [](std::string_view s) { return s; }));

} // namespace

Keyword LookUpKeyword(std::string_view word) {
    const auto found =
        std::lower_bound(std::begin(kKeywords), std::end(kKeywords), word,
                         [](const Entry& entry, std::string_view w) { return entry.first < w; });
    if (found != std::end(kKeywords) && found->first == word)
        return found->second;
    if (std::binary_search(std::begin(kSkipped), std::end(kSkipped), word))
        return Keyword::Skipped;
    return Keyword::Unknown;
}

} // namespace velto::rtf
