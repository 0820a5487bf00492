#pragma once
// The control words the reader acts on. Every other word is ignored, as RTF asks of a reader.
#include <cstdint>
#include <string_view>

namespace velto::rtf {

enum class Keyword : uint8_t {
    Unknown,
    // document and tables
    Ansi,
    Mac,
    Pc,
    Pca,
    AnsiCodePage,
    DefaultFont,
    FontTable,
    ColourTable,
    Font,
    Charset,
    FontCodePage,
    Red,
    Green,
    Blue,
    // destinations
    Skipped,
    NestedTableProperties,
    Field,
    FieldInstruction,
    FieldResult,
    UnicodePair,
    UnicodeAlternative,
    Picture,
    ShapePicture,
    ListTable,
    ListOverrideTable,
    OldNumbering,
    // character format
    Plain,
    FontSize,
    Bold,
    Italic,
    Underline,
    UnderlineNone,
    StrikeOut,
    Colour,
    UnicodeSkip,
    Unicode,
    // paragraphs
    ParagraphDefault,
    AlignLeft,
    AlignCentre,
    AlignRight,
    AlignJustified,
    Par,
    Section,
    Page,
    Cell,
    NestedCell,
    Row,
    RowDefaults,
    CellBoundary,
    CellMerged,
    InTable,
    Line,
    Tab,
    // paragraph layout
    LeftIndent,
    RightIndent,
    FirstLineIndent,
    SpaceBefore,
    SpaceAfter,
    LineSpacing,
    LineMultiple,
    TabPosition,
    TabCentre,
    TabRight,
    TabDecimal,
    // lists
    ListNumber,
    ListLevel,
    // characters with a name
    LeftQuote,
    RightQuote,
    LeftDoubleQuote,
    RightDoubleQuote,
    Bullet,
    EnDash,
    EmDash,
    EmSpace,
    EnSpace,
    QuarterEmSpace,
    ZeroWidthJoiner,
    ZeroWidthNonJoiner,
    LeftToRightMark,
    RightToLeftMark,
    Binary,
};

Keyword LookUpKeyword(std::string_view word);

} // namespace velto::rtf
