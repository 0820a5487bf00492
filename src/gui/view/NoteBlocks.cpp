#include "view/NoteBlocks.h"

#include "view/NoteProperties.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>
#include <cmath>

namespace velto::notetext {
namespace {

constexpr int kDeepestLevel = 8;
// The step of "Einzug vergrößern" outside lists: half an inch, the rich-edit control's step.
constexpr double kIndentStepPixels = 48.0;

double Pixels(int twips) {
    return twips / kTwipsPerPixel;
}

int Twips(double pixels) {
    return int(std::lround(pixels * kTwipsPerPixel));
}

struct LineHeight {
    int type = QTextBlockFormat::SingleHeight;
    double height = 0;

    bool operator==(const LineHeight&) const = default;
};

// What the screen shows of a layout. Qt adds the list's indent to an item's left margin and draws
// the label in the first line's place, so an item shows its indent less the list's, and no first-line
// indent of its own.
struct ShownLayout {
    double left = 0; // the whole left position, list and block indents included
    double right = 0;
    double firstLine = 0;
    double before = 0;
    double after = 0;
    LineHeight line;
    QList<QTextOption::Tab> tabs;
};

double ListShift(std::optional<int> listLevel) {
    return listLevel ? (*listLevel + 1) * kIndentWidth : 0.0;
}

LineHeight LineHeightOf(const rtf::ParagraphLayout& layout) {
    if (layout.lineSpacing == 0)
        return {};
    if (layout.lineMultiple && layout.lineSpacing > 0)
        return {QTextBlockFormat::ProportionalHeight, layout.lineSpacing * 100.0 / 240.0};
    if (layout.lineSpacing < 0)
        return {QTextBlockFormat::FixedHeight, Pixels(-layout.lineSpacing)};
    return {QTextBlockFormat::MinimumHeight, Pixels(layout.lineSpacing)};
}

void TakeLineHeight(rtf::ParagraphLayout& layout, const LineHeight& line) {
    layout.lineMultiple = line.type == QTextBlockFormat::ProportionalHeight;
    switch (line.type) {
    case QTextBlockFormat::ProportionalHeight:
        layout.lineSpacing = int(std::lround(line.height * 240.0 / 100.0));
        break;
    case QTextBlockFormat::FixedHeight:
        layout.lineSpacing = -Twips(line.height);
        break;
    case QTextBlockFormat::MinimumHeight:
        layout.lineSpacing = Twips(line.height);
        break;
    default:
        layout.lineSpacing = 0;
        break;
    }
}

QTextOption::TabType QtTabType(rtf::TabKind kind) {
    switch (kind) {
    case rtf::TabKind::Centre:
        return QTextOption::CenterTab;
    case rtf::TabKind::Right:
        return QTextOption::RightTab;
    case rtf::TabKind::Decimal:
        return QTextOption::DelimiterTab;
    case rtf::TabKind::Left:
        break;
    }
    return QTextOption::LeftTab;
}

rtf::TabKind TabKindOf(QTextOption::TabType type) {
    switch (type) {
    case QTextOption::CenterTab:
        return rtf::TabKind::Centre;
    case QTextOption::RightTab:
        return rtf::TabKind::Right;
    case QTextOption::DelimiterTab:
        return rtf::TabKind::Decimal;
    case QTextOption::LeftTab:
        break;
    }
    return rtf::TabKind::Left;
}

ShownLayout Show(const rtf::ParagraphLayout& layout, std::optional<int> listLevel) {
    ShownLayout shown;
    shown.left = std::max(Pixels(layout.leftIndent), ListShift(listLevel));
    shown.right = Pixels(layout.rightIndent);
    shown.firstLine = listLevel ? 0.0 : Pixels(layout.firstLineIndent);
    shown.before = Pixels(layout.spaceBefore);
    shown.after = Pixels(layout.spaceAfter);
    shown.line = LineHeightOf(layout);
    for (const rtf::TabStop& tab : layout.tabs)
        shown.tabs.append(QTextOption::Tab(Pixels(tab.position), QtTabType(tab.kind), QLatin1Char('.')));
    return shown;
}

std::optional<int> LevelOf(const QTextList* list) {
    if (!list)
        return std::nullopt;
    return std::clamp(list->format().indent() - 1, 0, kDeepestLevel);
}

ShownLayout ShownBy(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    const QTextList* list = block.textList();
    ShownLayout shown;
    shown.left =
        format.leftMargin() + (format.indent() + (list ? list->format().indent() : 0)) * kIndentWidth;
    shown.right = format.rightMargin();
    shown.firstLine = format.textIndent();
    shown.before = format.topMargin();
    shown.after = format.bottomMargin();
    shown.line = {format.lineHeightType(), format.lineHeight()};
    shown.tabs = format.tabPositions();
    return shown;
}

rtf::ListKind KindOf(QTextListFormat::Style style) {
    switch (style) {
    case QTextListFormat::ListDecimal:
        return rtf::ListKind::Decimal;
    case QTextListFormat::ListLowerAlpha:
        return rtf::ListKind::LowerLetter;
    case QTextListFormat::ListUpperAlpha:
        return rtf::ListKind::UpperLetter;
    case QTextListFormat::ListLowerRoman:
        return rtf::ListKind::LowerRoman;
    case QTextListFormat::ListUpperRoman:
        return rtf::ListKind::UpperRoman;
    default:
        return rtf::ListKind::Bullet;
    }
}

// Bullets change shape from level to level, as word processors draw them.
QTextListFormat::Style StyleOf(rtf::ListKind kind, int level) {
    switch (kind) {
    case rtf::ListKind::Decimal:
        return QTextListFormat::ListDecimal;
    case rtf::ListKind::LowerLetter:
        return QTextListFormat::ListLowerAlpha;
    case rtf::ListKind::UpperLetter:
        return QTextListFormat::ListUpperAlpha;
    case rtf::ListKind::LowerRoman:
        return QTextListFormat::ListLowerRoman;
    case rtf::ListKind::UpperRoman:
        return QTextListFormat::ListUpperRoman;
    case rtf::ListKind::Bullet:
        break;
    }
    constexpr QTextListFormat::Style kBullets[] = {QTextListFormat::ListDisc, QTextListFormat::ListCircle,
                                                   QTextListFormat::ListSquare};
    return kBullets[level % 3];
}

QTextListFormat ListFormat(int documentId, int level, rtf::ListKind kind, int start) {
    QTextListFormat format;
    format.setStyle(StyleOf(kind, level));
    format.setIndent(level + 1);
    format.setProperty(kListIdProperty, documentId);
    format.setProperty(kListStartProperty, start);
    return format;
}

int ListIdOf(const QTextList* list) {
    return list->format().intProperty(kListIdProperty);
}

template <typename Visit> void ForEachSelectedBlock(const QTextCursor& cursor, Visit visit) {
    const QTextDocument* document = cursor.document();
    const QTextBlock last = document->findBlock(cursor.selectionEnd());
    for (QTextBlock block = document->findBlock(cursor.selectionStart()); block.isValid();
         block = block.next()) {
        visit(block);
        if (block == last)
            break;
    }
}

// The list an item moving to a level joins: the one of that level the item's neighbours above belong
// to, unless an item of a higher level comes first, after which the level starts afresh.
QTextList* ListAbove(const QTextBlock& block, int id, int indent) {
    for (QTextBlock above = block.previous(); above.isValid(); above = above.previous()) {
        QTextList* list = above.textList();
        if (!list || ListIdOf(list) != id || list->format().indent() < indent)
            return nullptr;
        if (list->format().indent() == indent)
            return list;
    }
    return nullptr;
}

void MoveItem(const QTextBlock& block, QTextList* list, int direction) {
    const int level = *LevelOf(list);
    const int newLevel = std::clamp(level + direction, 0, kDeepestLevel);
    if (newLevel == level)
        return;
    const int id = ListIdOf(list);
    if (QTextList* target = ListAbove(block, id, newLevel + 1)) {
        target->add(block);
        return;
    }
    const QTextListFormat format = list->format();
    QTextCursor(block).createList(
        ListFormat(id, newLevel, KindOf(format.style()), format.intProperty(kListStartProperty)));
}

void ShiftLeftMargin(const QTextBlock& block, int direction) {
    QTextBlockFormat format = block.blockFormat();
    format.setLeftMargin(std::max(0.0, format.leftMargin() + direction * kIndentStepPixels));
    QTextCursor(block).setBlockFormat(format);
}

void LeaveList(const QTextBlock& block) {
    block.textList()->remove(block);
    // Back at the margin, as the paragraph stood before it became an item.
    QTextBlockFormat format = block.blockFormat();
    format.setIndent(0);
    format.setLeftMargin(0);
    format.setTextIndent(0);
    QTextCursor(block).setBlockFormat(format);
}

} // namespace

void ApplyLayout(QTextBlockFormat& format, const rtf::ParagraphLayout& layout, std::optional<int> listLevel) {
    const ShownLayout shown = Show(layout, listLevel);
    format.setLeftMargin(shown.left - ListShift(listLevel));
    format.setRightMargin(shown.right);
    format.setTextIndent(shown.firstLine);
    format.setTopMargin(shown.before);
    format.setBottomMargin(shown.after);
    if (shown.line != LineHeight())
        format.setLineHeight(shown.line.height, shown.line.type);
    if (!shown.tabs.isEmpty())
        format.setTabPositions(shown.tabs);
    if (layout != rtf::ParagraphLayout())
        format.setProperty(kLayoutProperty, QVariant::fromValue(layout));
}

rtf::ParagraphLayout LayoutOf(const QTextBlock& block) {
    const rtf::ParagraphLayout kept =
        block.blockFormat().property(kLayoutProperty).value<rtf::ParagraphLayout>();
    const ShownLayout expected = Show(kept, LevelOf(block.textList()));
    const ShownLayout shown = ShownBy(block);
    rtf::ParagraphLayout layout = kept;
    if (shown.left != expected.left)
        layout.leftIndent = Twips(shown.left);
    if (shown.right != expected.right)
        layout.rightIndent = Twips(shown.right);
    if (shown.firstLine != expected.firstLine)
        layout.firstLineIndent = Twips(shown.firstLine);
    if (shown.before != expected.before)
        layout.spaceBefore = Twips(shown.before);
    if (shown.after != expected.after)
        layout.spaceAfter = Twips(shown.after);
    if (shown.line != expected.line)
        TakeLineHeight(layout, shown.line);
    if (shown.tabs != expected.tabs) {
        layout.tabs.clear();
        for (const QTextOption::Tab& tab : shown.tabs)
            layout.tabs.push_back({Twips(tab.position), TabKindOf(tab.type)});
    }
    return layout;
}

void ListPlacer::Place(QTextCursor& cursor, const std::optional<rtf::ListMembership>& list) {
    if (!list)
        return;
    std::erase_if(m_open, [&](const auto& open) {
        return open.first.first == list->id && open.first.second > list->level;
    });
    QTextList*& open = m_open[{list->id, list->level}];
    if (open)
        open->add(cursor.block());
    else
        open = cursor.createList(ListFormat(m_firstId + list->id - 1, list->level, list->kind, list->start));
}

int NextListId(const QTextDocument& document) {
    int highest = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        if (const QTextList* list = block.textList())
            highest = std::max(highest, ListIdOf(list));
    return highest + 1;
}

std::optional<rtf::ListMembership> ListReader::MembershipOf(const QTextBlock& block) {
    const QTextList* list = block.textList();
    if (!list)
        return std::nullopt;
    const QTextListFormat format = list->format();
    rtf::ListMembership membership;
    membership.level = *LevelOf(list);
    membership.kind = KindOf(format.style());
    membership.start = format.hasProperty(kListStartProperty) ? format.intProperty(kListStartProperty) : 1;
    if (format.hasProperty(kListIdProperty)) {
        membership.id = format.intProperty(kListIdProperty);
    } else {
        // Below every id the pane gives, so that it joins no list of the note.
        const auto [unnamed, added] = m_unnamed.try_emplace(list, -int(m_unnamed.size()) - 1);
        membership.id = unnamed->second;
    }
    return membership;
}

std::optional<rtf::ListKind> ListKindAt(const QTextCursor& cursor) {
    const QTextList* list = cursor.currentList();
    return list ? std::optional(KindOf(list->format().style())) : std::nullopt;
}

void ToggleList(QTextCursor& cursor, rtf::ListKind kind) {
    cursor.beginEditBlock();
    QTextList* current = cursor.currentList();
    if (current && KindOf(current->format().style()) == kind) {
        ForEachSelectedBlock(cursor, [](const QTextBlock& block) {
            if (block.textList())
                LeaveList(block);
        });
    } else if (current) {
        // A numbered list becomes a bulleted one and the other way round, with all its items.
        QTextListFormat format = current->format();
        format.setStyle(StyleOf(kind, *LevelOf(current)));
        current->setFormat(format);
    } else {
        cursor.createList(ListFormat(NextListId(*cursor.document()), 0, kind, 1));
    }
    cursor.endEditBlock();
}

void StepIndent(QTextCursor& cursor, int direction) {
    cursor.beginEditBlock();
    ForEachSelectedBlock(cursor, [direction](const QTextBlock& block) {
        if (QTextList* list = block.textList())
            MoveItem(block, list, direction);
        else
            ShiftLeftMargin(block, direction);
    });
    cursor.endEditBlock();
}

} // namespace velto::notetext
